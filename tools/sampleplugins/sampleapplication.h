#ifndef SAMPLEAPPLICATION_H
#define SAMPLEAPPLICATION_H

#include "ZephanShared/toolkit/abstractapplicationfactory.h"

#include <QTranslator>
#include <QVector>

#include <map>
#include <memory>

/// A study application that measures nothing: it only says of itself what the console asks for.
///
/// Its texts are translated in a context that is its name, from `translations/<name>_<code>.qm` in the folder
/// that the plug-in lies in.
class SampleApplication : public AbstractApplication
{
public:
    /// A study field; the text is the source text of its translations.
    struct Field
    {
        const char *id;
        const char *text;
        bool isFixed;
    };

    SampleApplication(const char *name, const char *displayName, QVector<Field> fields,
                      QList<int> requiredPersonFields);

    QString name() const;

    QTranslator *translator(const QString &code) override;
    void setPluginPath(const QString &path) override;
    QString displayName() const override;
    QList<FieldDescriptor> studyFields() const override;
    QList<int> requiredPersonFields() const override;

private:
    QString translated(const char *text) const;

    const char *const m_name;
    const char *const m_displayName;
    const QVector<Field> m_fields;
    const QList<int> m_requiredPersonFields;
    QString m_pluginPath;
    std::map<QString, std::unique_ptr<QTranslator>> m_translators;  ///< by code; only those that have a file
};

#endif
