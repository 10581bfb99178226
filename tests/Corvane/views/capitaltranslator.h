#ifndef TESTS_CAPITALTRANSLATOR_H
#define TESTS_CAPITALTRANSLATOR_H

#include <QTranslator>

/// Answers every text with the same text in capitals.
class CapitalTranslator : public QTranslator
{
public:
    QString translate(const char *, const char *source, const char *, int) const override
    {
        return QString::fromUtf8(source).toUpper();
    }
    bool isEmpty() const override
    {
        return false;
    }
};

#endif
