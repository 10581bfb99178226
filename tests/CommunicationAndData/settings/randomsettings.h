#ifndef RANDOMSETTINGS_H
#define RANDOMSETTINGS_H

#include <QMap>
#include <QRandomGenerator>
#include <QVariant>

/// Settings as a careless program might write them, the same for the same seed.
class RandomSettings
{
public:
    explicit RandomSettings(quint32 seed);

    QMap<QString, QVariant> map();
    QVariant value();
    QString text();
    QByteArray bytes();
    int number(int limit);

private:
    QRandomGenerator m_generator;
};

#endif
