#include "programfolder.h"

#include "support/runningprogram.h"
#include "support/workstation.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

namespace {

// The texts of the login view that the tests look at.
const char *const kTexts[] = {"Select to login as", "Sign in",      "Sign in failed!", "Go back",
                              "Authenticated user", "Current user", "Other user",      "Enter username",
                              "Language:",          "Finnish"};

}  // namespace

bool makeTranslation(const QString &folder, const QString &code)
{
    QByteArray messages;
    for (const char *text : kTexts) {
        messages += QStringLiteral("<message><source>%1</source><translation>%2</translation></message>\n")
                        .arg(QString::fromLatin1(text), translatedText(QString::fromLatin1(text), code))
                        .toUtf8();
    }
    const QString source = folder + QStringLiteral("/Corvane_") + code + QStringLiteral(".ts");
    if (!writeFile(source, "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE TS>\n<TS version=\"2.1\">\n"
                           "<context><name>LoginView</name>\n" +
                               messages + "</context></TS>\n"))
        return false;
    const bool made =
        QProcess::execute(QStringLiteral(CORVANE_LRELEASE), {QStringLiteral("-silent"), source}) == 0;
    return QFile::remove(source) && made;
}

QString translatedText(const QString &text, const QString &code)
{
    return code.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, code);
}

ProgramFolder::ProgramFolder()
{
    const QString built = RunningProgram::builtProgram();
    QFile::copy(built, program());
    QFile::link(QFileInfo(built).path() + QStringLiteral("/sqldrivers"),
                m_folder.filePath(QStringLiteral("sqldrivers")));
}

QString ProgramFolder::program() const
{
    return m_folder.filePath(QStringLiteral("Corvane"));
}

bool ProgramFolder::addTranslation(const QString &code)
{
    return makeTranslation(m_folder.filePath(QStringLiteral("translations")), code);
}
