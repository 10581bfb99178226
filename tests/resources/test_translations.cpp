#include "ZephanShared/toolkit/languages.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <QTranslator>
#include <QXmlStreamReader>

namespace {

const auto kSourceLanguage = QLatin1String("en_GB");

/// A text with its translation, as it stands in a translation file.
struct Message
{
    QString context;
    QString source;
    QString comment;
    QStringList translations;  ///< one, or as many as the language has plural forms
    bool finished = true;
};

QStringList readTranslations(QXmlStreamReader &xml)
{
    QStringList forms;
    QString text;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("numerusform"))
            forms.append(xml.readElementText());
        else if (xml.isCharacters())
            text += xml.text();
        else if (xml.isEndElement() && xml.name() == QLatin1String("translation"))
            break;
    }
    return forms.isEmpty() ? QStringList(text) : forms;
}

QList<Message> readMessages(const QString &path)
{
    QList<Message> messages;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return messages;
    QXmlStreamReader xml(&file);
    Message message;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("name")) {
            message.context = xml.readElementText();
        } else if (xml.name() == QLatin1String("source")) {
            message.source = xml.readElementText();
            message.comment.clear();
        } else if (xml.name() == QLatin1String("comment")) {
            message.comment = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            message.finished = !xml.attributes().hasAttribute(QLatin1String("type"));
            message.translations = readTranslations(xml);
            messages.append(message);
        }
    }
    return xml.hasError() ? QList<Message>() : messages;
}

QStringList all(const QString &text, const QString &pattern)
{
    QStringList found;
    QRegularExpressionMatchIterator matches = QRegularExpression(pattern).globalMatch(text);
    while (matches.hasNext())
        found.append(matches.next().captured());
    found.sort();
    return found;
}

/// What a text ends in, with the punctuation of East Asian languages read as the western one.
QString ending(const QString &text)
{
    static const QMap<QChar, QChar> western = {{QChar(0x3002), QLatin1Char('.')},
                                               {QChar(0xff1a), QLatin1Char(':')},
                                               {QChar(0xff1f), QLatin1Char('?')},
                                               {QChar(0xff01), QLatin1Char('!')},
                                               {QChar(0xff09), QLatin1Char(')')}};
    QString last =
        all(text, QStringLiteral("(\\.\\.\\.|[.:?!]|\\x{3002}|\\x{ff1a}|\\x{ff1f}|\\x{ff01})?\\s*$"))
            .join(QString());
    for (auto mark = western.cbegin(); mark != western.cend(); ++mark)
        last.replace(mark.key(), mark.value());
    return last;
}

QString beginningBlanks(const QString &text)
{
    return all(text, QStringLiteral("^\\s+")).join(QString());
}

/// What is wrong with one form of a translation; empty when nothing is.
QString fault(const QString &source, const QString &translation)
{
    if (translation.isEmpty())
        return QStringLiteral("is empty");
    const QList<QPair<QString, QString>> kept = {
        {QStringLiteral("%\\d|%n"), QStringLiteral("place markers")},
        {QStringLiteral("\n"), QStringLiteral("line breaks")},
        {QStringLiteral("&"), QStringLiteral("shortcut marks")},
        {QStringLiteral("\\(\\*\\.[^)]*\\)|;;"), QStringLiteral("file filters")},
    };
    for (const auto &part : kept) {
        if (all(source, part.first) != all(translation, part.first))
            return QStringLiteral("has other ") + part.second;
    }
    if (ending(source) != ending(translation))
        return QStringLiteral("ends in other punctuation or blanks");
    if (beginningBlanks(source) != beginningBlanks(translation))
        return QStringLiteral("begins with other blanks");
    return QString();
}

}  // namespace

class TestTranslations : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void everyTextIsTranslatedAndKeepsItsMarks_data();
    void everyTextIsTranslatedAndKeepsItsMarks();
    void theCompiledFileHoldsEveryText_data();
    void theCompiledFileHoldsEveryText();
    void theSourceLanguageTranslatesEachTextToItself();
    void languageNamesAreOfferedInBothViews_data();
    void languageNamesAreOfferedInBothViews();

private:
    void addLanguages();
    static QString sourceFile(const QString &code);

    QStringList m_codes;
};

void TestTranslations::initTestCase()
{
    const QDir folder(QStringLiteral(CORVANE_TRANSLATIONS));
    for (const QString &name : folder.entryList({QStringLiteral("Corvane_*.ts")}, QDir::Files))
        m_codes.append(name.mid(8).chopped(3));
    QVERIFY(m_codes.contains(kSourceLanguage));
}

QString TestTranslations::sourceFile(const QString &code)
{
    return QStringLiteral(CORVANE_TRANSLATIONS "/Corvane_%1.ts").arg(code);
}

void TestTranslations::addLanguages()
{
    QTest::addColumn<QString>("code");
    for (const QString &code : m_codes)
        QTest::newRow(qPrintable(code)) << code;
}

void TestTranslations::everyTextIsTranslatedAndKeepsItsMarks_data()
{
    addLanguages();
}

void TestTranslations::everyTextIsTranslatedAndKeepsItsMarks()
{
    QFETCH(QString, code);
    QVERIFY2(findLanguage(code), "The language has no name in the table of languages.");
    const QList<Message> messages = readMessages(sourceFile(code));
    QVERIFY(!messages.isEmpty());
    QStringList faults;
    for (const Message &message : messages) {
        const QString where = message.context + QLatin1String(": \"") + message.source + QLatin1String("\" ");
        if (!message.finished)
            faults.append(where + QLatin1String("is not finished"));
        for (const QString &translation : message.translations) {
            const QString found = fault(message.source, translation);
            if (message.finished && !found.isEmpty())
                faults.append(where + found + QLatin1String(": \"") + translation + QLatin1Char('"'));
        }
    }
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
}

void TestTranslations::theCompiledFileHoldsEveryText_data()
{
    addLanguages();
}

void TestTranslations::theCompiledFileHoldsEveryText()
{
    QFETCH(QString, code);
    QTranslator translator;
    const QString folder = QCoreApplication::applicationDirPath() + QLatin1String("/translations");
    QVERIFY(translator.load(QLatin1String("Corvane_") + code, folder));
    for (const Message &message : readMessages(sourceFile(code))) {
        if (message.translations.size() != 1)
            continue;
        const QByteArray comment = message.comment.toUtf8();
        QCOMPARE(translator.translate(message.context.toUtf8().constData(),
                                      message.source.toUtf8().constData(),
                                      comment.isEmpty() ? nullptr : comment.constData()),
                 message.translations.first());
    }
}

void TestTranslations::theSourceLanguageTranslatesEachTextToItself()
{
    for (const Message &message : readMessages(sourceFile(kSourceLanguage))) {
        // The singular is the text itself; a plural may be written otherwise.
        QCOMPARE(message.translations.first(), message.source);
    }
}

void TestTranslations::languageNamesAreOfferedInBothViews_data()
{
    QTest::addColumn<QString>("context");

    QTest::newRow("the language selector of the sign-in view") << "LoginView";
    QTest::newRow("the language of the applications on the General tab") << "PersonBrowserSettingsView";
}

void TestTranslations::languageNamesAreOfferedInBothViews()
{
    QFETCH(QString, context);
    QStringList offered;
    for (const Message &message : readMessages(sourceFile(kSourceLanguage))) {
        if (message.context == context)
            offered.append(message.source);
    }
    for (const Language &language : languages())
        QVERIFY2(offered.contains(QString::fromUtf8(language.name)), language.name);
}

QTEST_GUILESS_MAIN(TestTranslations)
#include "test_translations.moc"
