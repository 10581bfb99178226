#include "ZephanShared/widgets/textedit.h"

#include "ZephanShared/widgets/styleprinter.h"

#include <QFontMetrics>
#include <QTextEdit>

#include <cmath>

namespace {

constexpr int kFewestLines = 2;
constexpr int kMostLines = 15;
constexpr int kSpareHeight = 8;  // pixels

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
    const int documentLines =
        static_cast<int>(std::ceil(m_textEdit->document()->size().height() / lineHeight));
    const int lines = qBound(kFewestLines, documentLines, kMostLines);
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
