#include "ZephanShared/widgets/textedit.h"

#include "ZephanShared/widgets/styleprinter.h"

#include <QFontMetrics>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>

namespace {

constexpr int kFewestLines = 2;
constexpr int kMostLines = 15;
constexpr int kSpareHeight = 8;  // pixels

/// Lines as they are shown, with those that a narrow field breaks.
int shownLines(const QTextDocument &document)
{
    document.size();  // lays out what has changed
    int lines = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        lines += block.layout()->lineCount();
    return lines;
}

}  // namespace

TextEdit::TextEdit(QWidget *parent)
    : FieldEdit(parent)
    , m_textEdit(new QTextEdit)
{
    m_textEdit->setAcceptRichText(false);
    m_textEdit->setStyleSheet(StylePrinter::fieldStyle(QStringLiteral("QTextEdit"), true, false, false));
    addWidget(m_textEdit);
    connect(m_textEdit, &QTextEdit::textChanged, this, &TextEdit::textChanged);
    updateEditSize();
}

QString TextEdit::value() const
{
    return m_textEdit->toPlainText();
}

QTextEdit *TextEdit::textEdit() const
{
    return m_textEdit;
}

void TextEdit::updateEditSize()
{
    const int lineHeight = m_textEdit->fontMetrics().lineSpacing();
    const int lines = qBound(kFewestLines, shownLines(*m_textEdit->document()), kMostLines);
    const int frame = m_textEdit->frameWidth() + m_textEdit->contentsMargins().top();
    const int height = lines * lineHeight + 2 * frame + kSpareHeight;
    if (height == m_textEdit->height())
        return;
    m_textEdit->setFixedHeight(height);
    activate();
}

void TextEdit::textChanged()
{
    updateEditSize();
    emit contentChanged();
}
