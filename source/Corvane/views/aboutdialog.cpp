#include "Corvane/views/aboutdialog.h"

#include "Corvane/views/producttexts.h"
#include "Corvane/views/versiontext.h"
#include "ZephanShared/widgets/styleprinter.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTextCursor>
#include <QTextEdit>
#include <QTextStream>
#include <QVBoxLayout>

namespace {

constexpr QSize kMinimumTextSize(450, 450);
constexpr int kMargin = 20;           // pixels, with the frame that the style draws
constexpr qint64 kNoticeBytes = 512;  // without the zero byte that the device ends a line with

const auto kFamily = QLatin1String("Arial");

/// The first line of a file without its line end; a null text when it can't be read.
QString firstLine(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return QString();
    const QByteArray line = file.readLine(kNoticeBytes + 1);
    return line.isEmpty() ? QString() : QString::fromUtf8(line).trimmed();
}

}  // namespace

AboutDialog::AboutDialog(const QString &mainTitle, const QString &subtitle, const QString &version,
                         const QString &copyrightFilePath, const QString &aboutFilePath, QWidget *parent)
    : QDialog(parent)
    , m_layout(new QVBoxLayout(this))
    , m_title(new QLabel(tr("About")))
    , m_text(new QTextEdit)
    , m_titleFont(kFamily, 16, QFont::Normal)
    , m_subtitleFont(kFamily, 12, QFont::Normal)
    , m_noticeFont(kFamily, 8, QFont::Normal)
    , m_aboutFont(kFamily, 8, QFont::Normal)
{
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
    setStyleSheet(StylePrinter::dialogStyle());
    m_layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);

    m_title->setObjectName(QStringLiteral("title_label"));
    m_title->setAlignment(Qt::AlignHCenter);
    m_layout->addWidget(m_title);

    m_text->setObjectName(QStringLiteral("about_text"));
    m_text->setAccessibleName(tr("About"));
    m_text->setFrameShape(QFrame::NoFrame);
    m_text->setReadOnly(true);
    m_text->setMinimumSize(kMinimumTextSize);
    m_text->document()->setDefaultFont(m_aboutFont);
    m_layout->addWidget(m_text);

    appendTitles(mainTitle, subtitle, version);
    appendNotice(copyrightFilePath);
    appendAboutText(aboutFilePath);
    m_text->moveCursor(QTextCursor::Start);

    m_layout->addWidget(createButtons());
}

QDialogButtonBox *AboutDialog::createButtons()
{
    auto *ok = new QPushButton(tr("&Ok"));
    ok->setObjectName(QStringLiteral("ok_button"));
    ok->setDefault(true);
    ok->setAutoDefault(true);
    ok->setStyleSheet(StylePrinter::pushButtonStyle(QStringLiteral("QPushButton")));
    auto *buttons = new QDialogButtonBox;
    buttons->addButton(ok, QDialogButtonBox::AcceptRole);
    connect(buttons, SIGNAL(accepted()), this, SLOT(accept()));
    return buttons;
}

void AboutDialog::appendTitles(const QString &mainTitle, const QString &subtitle, const QString &version)
{
    const QString formatted = formatVersion(version);
    appendLine(mainTitle + QLatin1String(" v") + formatted, m_titleFont, QColor(Palette::roleDisabledText),
               Qt::AlignHCenter);
    if (isPreRelease(formatted)) {
        appendLine(tr("THIS IS PRE-RELEASE VERSION OF THE SOFTWARE."), m_noticeFont, Qt::red,
                   Qt::AlignHCenter);
        appendLine(tr("NOT TO BE USED IN ANY CLINICAL WORK!"), m_noticeFont, Qt::red, Qt::AlignHCenter);
    }
    appendLine(subtitle, m_subtitleFont, Qt::black, Qt::AlignHCenter);
}

void AboutDialog::appendNotice(const QString &copyrightFilePath)
{
    const QString notice =
        copyrightFilePath.isEmpty() ? ProductTexts::makersNotice() : firstLine(copyrightFilePath);
    if (notice.isNull())
        return;
    appendLine(QString(), m_noticeFont, Qt::black, Qt::AlignHCenter);
    appendLine(notice, m_noticeFont, Qt::black, Qt::AlignHCenter);
}

void AboutDialog::appendAboutText(const QString &aboutFilePath)
{
    QFile file(aboutFilePath);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        appendLine(QString(), m_aboutFont, Qt::black, Qt::AlignLeft);
        m_text->textCursor().insertHtml(QLatin1String("<b>") +
                                        tr("Cannot fetch about information").toHtmlEscaped() +
                                        QLatin1String("</b>"));
        return;
    }
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    while (!stream.atEnd())
        appendLine(stream.readLine(), m_aboutFont, Qt::black, Qt::AlignLeft);
}

void AboutDialog::appendLine(const QString &text, const QFont &font, const QColor &color,
                             Qt::Alignment alignment)
{
    QTextBlockFormat block;
    block.setAlignment(alignment);
    QTextCharFormat characters;
    characters.setFont(font);
    characters.setForeground(color);

    QTextCursor cursor(m_text->document());
    cursor.movePosition(QTextCursor::End);
    if (m_text->document()->isEmpty()) {
        cursor.setBlockFormat(block);
        cursor.setBlockCharFormat(characters);
    } else {
        cursor.insertBlock(block, characters);
    }
    cursor.insertText(text, characters);
    m_text->setTextCursor(cursor);
}
