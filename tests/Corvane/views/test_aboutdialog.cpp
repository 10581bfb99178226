#include "Corvane/views/aboutdialog.h"
#include "ZephanShared/widgets/styleprinter.h"
#include "support/workstation.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>

namespace {

/// A line of the dialog with its look.
struct Line
{
    QString text;
    int pointSize;
    QColor color;
    bool centred;
    bool bold;
};

QList<Line> linesOf(const AboutDialog &dialog)
{
    QList<Line> lines;
    const QTextDocument *document = dialog.findChild<QTextEdit *>(QStringLiteral("about_text"))->document();
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        const bool empty = block.begin().atEnd();
        const QTextCharFormat format = empty ? block.charFormat() : block.begin().fragment().charFormat();
        lines.append({block.text(), format.font().pointSize(), format.foreground().color(),
                      bool(block.blockFormat().alignment() & Qt::AlignHCenter), format.font().bold()});
    }
    return lines;
}

QStringList textsOf(const AboutDialog &dialog)
{
    QStringList texts;
    for (const Line &line : linesOf(dialog))
        texts.append(line.text);
    return texts;
}

QTextEdit *textEdit(const AboutDialog &dialog)
{
    return dialog.findChild<QTextEdit *>(QStringLiteral("about_text"));
}

const auto kNotice = QStringLiteral("© 2026 Halvorn. All rights reserved.");

}  // namespace

class TestAboutDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void linesAndTheirLooks();
    void aPreReleaseVersionIsFollowedByTheWarningInRed();
    void aMissingVersionIsShownEmpty();
    void theLineEndOfTheVersionMakesItsLastPartZero();
    void noticeFromAFile_data();
    void noticeFromAFile();
    void aMissingAboutFileGivesTheBoldLineAndTheDialogStillOpens();
    void everyLineOfTheAboutFileIsShownAsItStands();
    void opensAtTheTop();
    void isFramelessWithItsTitleOnTop();
    void theTextCanOnlyBeRead();
    void okAccepts_data();
    void okAccepts();

private:
    QString file(const QString &name, const QByteArray &content);

    QTemporaryDir m_folder;
    QString m_about;
};

QString TestAboutDialog::file(const QString &name, const QByteArray &content)
{
    const QString path = m_folder.filePath(name);
    writeFile(path, content);
    return path;
}

void TestAboutDialog::initTestCase()
{
    m_about = file(QStringLiteral("about.txt"), "First line\nSecond line\n");
}

void TestAboutDialog::linesAndTheirLooks()
{
    const AboutDialog dialog(QStringLiteral("Main"), QStringLiteral("Sub"), QStringLiteral("5.1.0.0"),
                             QString(), m_about, nullptr);
    const QList<Line> lines = linesOf(dialog);
    QCOMPARE(textsOf(dialog),
             QStringList({QStringLiteral("Main v5.1.0"), QStringLiteral("Sub"), QString(), kNotice,
                          QStringLiteral("First line"), QStringLiteral("Second line")}));

    QCOMPARE(lines[0].pointSize, 16);
    QCOMPARE(lines[0].color, QColor(Palette::roleDisabledText));
    QVERIFY(lines[0].centred);
    QCOMPARE(lines[1].pointSize, 12);
    QCOMPARE(lines[1].color, QColor(Qt::black));
    QVERIFY(lines[1].centred);
    QCOMPARE(lines[3].pointSize, 8);
    QCOMPARE(lines[3].color, QColor(Qt::black));
    QVERIFY(lines[3].centred);
    QCOMPARE(lines[4].pointSize, 8);
    QCOMPARE(lines[4].color, QColor(Qt::black));
    QVERIFY(!lines[4].centred);
    QVERIFY(!lines[4].bold);
    QVERIFY(!lines[5].centred);
}

void TestAboutDialog::aPreReleaseVersionIsFollowedByTheWarningInRed()
{
    const AboutDialog dialog(QStringLiteral("Main"), QStringLiteral("Sub"), QStringLiteral("6.0p3"),
                             QString(), m_about, nullptr);
    const QList<Line> lines = linesOf(dialog);
    QCOMPARE(lines[0].text, QStringLiteral("Main v6.0p3"));
    QCOMPARE(lines[1].text, QStringLiteral("THIS IS PRE-RELEASE VERSION OF THE SOFTWARE."));
    QCOMPARE(lines[2].text, QStringLiteral("NOT TO BE USED IN ANY CLINICAL WORK!"));
    QCOMPARE(lines[3].text, QStringLiteral("Sub"));
    for (int i : {1, 2}) {
        QCOMPARE(lines[i].pointSize, 8);
        QCOMPARE(lines[i].color, QColor(Qt::red));
    }
}

void TestAboutDialog::aMissingVersionIsShownEmpty()
{
    const AboutDialog dialog(QStringLiteral("Main"), QStringLiteral("Sub"), QString(), QString(), m_about,
                             nullptr);
    QCOMPARE(textsOf(dialog).first(), QStringLiteral("Main v"));
}

void TestAboutDialog::theLineEndOfTheVersionMakesItsLastPartZero()
{
    const AboutDialog dialog(QStringLiteral("Main"), QStringLiteral("Sub"), QStringLiteral("5.1.2\n"),
                             QString(), m_about, nullptr);
    QCOMPARE(textsOf(dialog).first(), QStringLiteral("Main v5.1.0"));
}

void TestAboutDialog::noticeFromAFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("the first line is the notice")
        << QByteArray("© Somebody\nElse") << QStringList({QString(), QStringLiteral("© Somebody")});
    QTest::newRow("at most 512 bytes of it")
        << QByteArray(600, 'n') << QStringList({QString(), QString(512, QLatin1Char('n'))});
    QTest::newRow("without a first line nothing is added") << QByteArray("") << QStringList();
    QTest::newRow("without the file nothing is added") << QByteArray() << QStringList();
}

void TestAboutDialog::noticeFromAFile()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, expected);
    const QString path = content.isNull() ? m_folder.filePath(QStringLiteral("missing"))
                                          : file(QStringLiteral("copyright"), content);
    const AboutDialog dialog(QStringLiteral("Main"), QStringLiteral("Sub"), QStringLiteral("5.1"), path,
                             m_about, nullptr);
    const QStringList texts = textsOf(dialog);
    QCOMPARE(texts.mid(2, texts.size() - 4), expected);
}

void TestAboutDialog::aMissingAboutFileGivesTheBoldLineAndTheDialogStillOpens()
{
    AboutDialog dialog(QStringLiteral("Main"), QStringLiteral("Sub"), QStringLiteral("5.1"), QString(),
                       QStringLiteral("licenses/missing.txt"), nullptr);
    const QList<Line> lines = linesOf(dialog);
    QCOMPARE(lines.size(), 5);
    QCOMPARE(lines.last().text, QStringLiteral("Cannot fetch about information"));
    QVERIFY(lines.last().bold);
    const QTextEdit *text = textEdit(dialog);
    QCOMPARE(text->document()->defaultFont().pointSize(), 8);
    QVERIFY(!lines.last().centred);
    dialog.show();
    QVERIFY(dialog.isVisible());
}

void TestAboutDialog::everyLineOfTheAboutFileIsShownAsItStands()
{
    const QString path = file(QStringLiteral("long.txt"), "Käyttöohje\n\n<b>not bold</b> & more\nlast");
    const AboutDialog dialog(QStringLiteral("Main"), QStringLiteral("Sub"), QStringLiteral("5.1"), QString(),
                             path, nullptr);
    QCOMPARE(textsOf(dialog).mid(4),
             QStringList({QStringLiteral("Käyttöohje"), QString(), QStringLiteral("<b>not bold</b> & more"),
                          QStringLiteral("last")}));
}

void TestAboutDialog::opensAtTheTop()
{
    const QString path = file(QStringLiteral("long.txt"), QByteArray("line\n").repeated(500));
    AboutDialog dialog(QStringLiteral("Main"), QStringLiteral("Sub"), QStringLiteral("5.1"), QString(), path,
                       nullptr);
    dialog.show();
    QScrollBar *bar = textEdit(dialog)->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 0);
    QCOMPARE(bar->value(), 0);
    QCOMPARE(textEdit(dialog)->textCursor().position(), 0);
}

void TestAboutDialog::isFramelessWithItsTitleOnTop()
{
    const AboutDialog dialog(QStringLiteral("Main"), QStringLiteral("Sub"), QStringLiteral("5.1"), QString(),
                             m_about, nullptr);
    QVERIFY(dialog.windowFlags() & Qt::FramelessWindowHint);
    QCOMPARE(dialog.windowFlags() & Qt::WindowType_Mask, Qt::WindowFlags(Qt::Dialog));
    QCOMPARE(dialog.styleSheet(), StylePrinter::dialogStyle());
    const auto *title = dialog.findChild<QLabel *>(QStringLiteral("title_label"));
    QCOMPARE(title->text(), QStringLiteral("About"));
    QVERIFY(title->alignment() & Qt::AlignHCenter);
}

void TestAboutDialog::theTextCanOnlyBeRead()
{
    const AboutDialog dialog(QStringLiteral("Main"), QStringLiteral("Sub"), QStringLiteral("5.1"), QString(),
                             m_about, nullptr);
    QTextEdit *text = textEdit(dialog);
    QVERIFY(text->isReadOnly());
    QCOMPARE(text->frameShape(), QFrame::NoFrame);
    QCOMPARE(text->minimumSize(), QSize(450, 450));
    const QString before = text->toPlainText();
    QTest::keyClicks(text, QStringLiteral("typed"));
    QCOMPARE(text->toPlainText(), before);
}

void TestAboutDialog::okAccepts_data()
{
    QTest::addColumn<bool>("byMouse");

    QTest::newRow("a click on Ok accepts") << true;
    QTest::newRow("Enter accepts, as Ok is the default") << false;
}

void TestAboutDialog::okAccepts()
{
    QFETCH(bool, byMouse);
    AboutDialog dialog(QStringLiteral("Main"), QStringLiteral("Sub"), QStringLiteral("5.1"), QString(),
                       m_about, nullptr);
    auto *ok = dialog.findChild<QPushButton *>(QStringLiteral("ok_button"));
    QCOMPARE(ok->text(), QStringLiteral("&Ok"));
    QVERIFY(ok->isDefault() && ok->autoDefault());
    QCOMPARE(ok->styleSheet(), StylePrinter::pushButtonStyle(QStringLiteral("QPushButton")));
    dialog.show();
    if (byMouse)
        QTest::mouseClick(ok, Qt::LeftButton);
    else
        QTest::keyClick(&dialog, Qt::Key_Return);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

QTEST_MAIN(TestAboutDialog)
#include "test_aboutdialog.moc"
