#ifndef TESTS_PROGRAMFOLDER_H
#define TESTS_PROGRAMFOLDER_H

#include <QString>
#include <QTemporaryDir>

/// Makes the translation file of a code in a folder. All its texts end in the code, as in "Sign in (fi)".
bool makeTranslation(const QString &folder, const QString &code);

/// What a text is in such a translation; the text itself for an empty code.
QString translatedText(const QString &text, const QString &code);

/// A copy of the built program in a folder of its own, with translations of its own beside it.
class ProgramFolder
{
public:
    ProgramFolder();

    QString program() const;
    bool addTranslation(const QString &code);

private:
    QTemporaryDir m_folder;
};

#endif
