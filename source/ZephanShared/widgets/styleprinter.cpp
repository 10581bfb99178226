#include "ZephanShared/widgets/styleprinter.h"

#include <QStringList>

// The roles are copies of the base colours, which therefore come first in this one translation unit.
namespace Palette {

const QString colorOrange = QStringLiteral("#FF671F");
const QString colorLightBlue = QStringLiteral("#8DC8E8");
const QString colorBlue = QStringLiteral("#0057B8");
const QString colorDarkBlue = QStringLiteral("#003865");
const QString colorLime = QStringLiteral("#C4D600");
const QString colorDarkGrey = QStringLiteral("#717074");
const QString colorPaleGrey = QStringLiteral("#EFF0F0");
const QString colorGrey = QStringLiteral("#BABCBE");
const QString colorWhite = QStringLiteral("white");
const QString colorPaleYellow = QStringLiteral("#F2F0A1");
const QString colorPalePink = QStringLiteral("#FFDDDD");
const QString colorYellow = QStringLiteral("#FFE072");

const QString roleText = colorBlue;
const QString roleFrame = colorLightBlue;
const QString roleBorder = colorGrey;
const QString roleDisabledBackground = colorPaleGrey;
const QString roleDisabledText = colorDarkGrey;
const QString roleHover = colorPaleYellow;
const QString rolePressed = colorYellow;
const QString roleInvalid = colorPalePink;
const QString roleFocus = colorLightBlue;
const QString roleAccent = colorOrange;
const QString roleHighlight = colorLime;
const QString roleDark = colorDarkBlue;

}  // namespace Palette

using namespace Palette;

namespace {

const auto kFontSize = QLatin1String("font-size: 12px;");
const auto kFieldPadding = QLatin1String(" padding: 4px;");
constexpr int kWindowFrameWidth = 6;  // pixels

QString textColor(const QString &color)
{
    return QStringLiteral("color: %1; ").arg(color);
}

QString background(const QString &brush)
{
    return QStringLiteral("background-color: %1; ").arg(brush);
}

QString border(int width, const QString &line, const QString &color)
{
    return QStringLiteral("border: %1px %2 %3; ").arg(QString::number(width), line, color);
}

QString rule(const QString &selector, const QString &declarations)
{
    return selector + QLatin1String(" { ") + declarations + QLatin1String(" }");
}

QString sheet(const QStringList &rules)
{
    return rules.join(QLatin1Char(' '));
}

QString gradient(bool vertical, const QString &from, const QString &to)
{
    return QStringLiteral("qlineargradient(x1: 0, y1: 0, x2: %1, y2: %2, stop: 0 %3, stop: 1 %4)")
        .arg(QLatin1String(vertical ? "0" : "1"), QLatin1String(vertical ? "1" : "0"), from, to);
}

/// A bevel: the light end of the gradients lies outside at the top left and the dark one at the bottom right.
QString bevel()
{
    return QStringLiteral("border-top-color: %1; border-left-color: %2; border-right-color: %3; "
                          "border-bottom-color: %4; ")
        .arg(gradient(true, roleFrame, roleText), gradient(false, roleFrame, roleText),
             gradient(false, roleText, roleFrame), gradient(true, roleText, roleFrame));
}

QString framedWindow(const QString &selector)
{
    return rule(selector, StylePrinter::normalStyle(kWindowFrameWidth) + QLatin1Char(' ') +
                              background(colorWhite) + bevel() + QLatin1String("padding: 20px;"));
}

QString textOnWhite()
{
    return textColor(roleText) + background(colorWhite).trimmed();
}

QString timeEditState(const QString &state, const QString &declarations)
{
    return rule(QLatin1String("QTimeEdit") + state, declarations + QLatin1String(" padding-right: 20px;"));
}

QString timeEditButton(const QString &name, const QString &edge)
{
    return rule(
        QStringLiteral("QTimeEdit::%1-button").arg(name),
        QStringLiteral("subcontrol-origin: border; subcontrol-position: %1 right; width: 20px;").arg(edge));
}

QString timeEditArrow(const QString &name)
{
    return rule(QStringLiteral("QTimeEdit::%1-arrow").arg(name),
                QStringLiteral("image: url(:/icons/%1_arrow.gif); width: 15px; height: 5px;").arg(name));
}

}  // namespace

QString StylePrinter::normalStyle(int width)
{
    return textColor(roleText) + border(width, QStringLiteral("solid"), roleBorder) + background(colorWhite) +
           kFontSize;
}

QString StylePrinter::focusStyle(int width)
{
    return textColor(roleText) + border(width, QStringLiteral("solid"), roleText) + kFontSize;
}

QString StylePrinter::hoverBorderStyle(int width)
{
    return border(width, QStringLiteral("solid"), roleFrame) + kFontSize;
}

QString StylePrinter::disabledStyle()
{
    return border(1, QStringLiteral("solid"), roleBorder) + background(roleDisabledBackground) +
           textColor(roleDisabledText) + kFontSize;
}

QString StylePrinter::invalidStyle()
{
    return border(1, QStringLiteral("solid"), roleBorder) + background(roleInvalid) + kFontSize;
}

QString StylePrinter::autofilledStyle()
{
    return border(1, QStringLiteral("solid"), roleBorder) + background(roleHover) + kFontSize;
}

QString StylePrinter::buttonFocusStyle()
{
    return textColor(roleText) + border(1, QStringLiteral("solid"), roleText) + background(roleFocus) +
           QLatin1String("font-size: 12px; font-style: bold;");
}

QString StylePrinter::buttonHoverStyle()
{
    return background(gradient(true, QStringLiteral("transparent"), roleHover)) + kFontSize;
}

QString StylePrinter::buttonPressedStyle()
{
    return background(rolePressed) + border(2, QStringLiteral("inset"), rolePressed) + kFontSize;
}

QString StylePrinter::buttonSelectedStyle()
{
    return textColor(roleText) + border(1, QStringLiteral("solid"), roleBorder) + background(colorWhite) +
           kFontSize;
}

QString StylePrinter::pushButtonStyle(const QString &selector)
{
    return sheet({
        rule(selector + QLatin1String(":hover"), buttonHoverStyle()),
        rule(selector + QLatin1String(":focus"), buttonFocusStyle()),
        rule(selector + QLatin1String(":pressed"), buttonPressedStyle()),
        rule(selector + QLatin1String(":selected"), buttonSelectedStyle()),
        rule(selector + QLatin1String(":disabled"), disabledStyle()),
        selector + QLatin1String(" { ") + normalStyle(1) +
            QLatin1String(" font-weight: bold; padding-top: 5px; padding-bottom: 5px; padding-left: 15px; "
                          "padding-right: 15px; } "),
    });
}

QString StylePrinter::toolButtonStyle()
{
    return sheet({
        rule(QStringLiteral("QToolButton:focus"), buttonFocusStyle()),
        rule(QStringLiteral("QToolButton:hover"), buttonHoverStyle()),
        rule(QStringLiteral("QToolButton:pressed"), buttonPressedStyle()),
        rule(QStringLiteral("QToolButton"), QStringLiteral("outline: none;border: none;padding: 0px;"
                                                           "margin: 0px;background-color: transparent;")),
    });
}

QString StylePrinter::fieldStyle(const QString &selector, bool valid, bool autofilled, bool disabled)
{
    QString state = normalStyle(1);
    if (disabled)
        state = disabledStyle();
    else if (!valid)
        state = invalidStyle();
    else if (autofilled)
        state = autofilledStyle();
    return sheet({
        rule(selector, state + kFieldPadding),
        rule(selector + QLatin1String(":focus"), focusStyle(1) + kFieldPadding),
        rule(selector + QLatin1String(":!focus:hover"), hoverBorderStyle(1) + kFieldPadding),
    });
}

QString StylePrinter::lineEditStyle(bool valid, bool autofilled, bool disabled)
{
    return fieldStyle(QStringLiteral("QLineEdit"), valid, autofilled, disabled);
}

QString StylePrinter::timeEditStyle()
{
    return sheet({
        timeEditState(QString(), normalStyle(1)),
        timeEditState(QStringLiteral(":disabled"), disabledStyle()),
        timeEditState(QStringLiteral(":focus"), focusStyle(1)),
        timeEditState(QStringLiteral(":hover"), hoverBorderStyle(1)),
        timeEditButton(QStringLiteral("up"), QStringLiteral("top")),
        timeEditButton(QStringLiteral("down"), QStringLiteral("bottom")),
        timeEditArrow(QStringLiteral("up")),
        timeEditArrow(QStringLiteral("down")),
    });
}

QString StylePrinter::dialogStyle()
{
    return sheet({
        framedWindow(QStringLiteral("QDialog")),
        rule(QStringLiteral("QLabel, QTreeWidget, QCheckBox"), textOnWhite()),
        rule(QStringLiteral("QLabel#title_label"),
             textColor(roleText) + QLatin1String("font-size: 14px; font-weight: bold;")),
        rule(QStringLiteral("QLabel#information_label"), kFontSize),
        rule(QStringLiteral("QWidget#scroll_widget"), QStringLiteral("background-color: transparent;")),
    });
}

QString StylePrinter::messageBoxStyle(bool large)
{
    const QLatin1String messageSize(large ? " font-size: 14px;" : " font-size: 12px;");
    return sheet({
        framedWindow(QStringLiteral("QMessageBox")),
        pushButtonStyle(QStringLiteral("QMessageBox QPushButton")),
        rule(QStringLiteral("QLabel#qt_msgbox_informativelabel"), textOnWhite()),
        rule(QStringLiteral("QLabel#qt_msgbox_label"), textOnWhite() + messageSize),
    });
}

QString StylePrinter::titleLabelStyle()
{
    return QLatin1String("QLabel { color: ") + roleDisabledText +
           QLatin1String("; font-family: \"Arial\"; font-weight: 630; font-size: 26px; }");
}

QString StylePrinter::fieldLabelStyle()
{
    return rule(QStringLiteral("QLabel"),
                textColor(roleText) + QLatin1String("border: none; border-top: 1px dashed ") + roleBorder +
                    QLatin1String("; ") + background(QStringLiteral("transparent")) +
                    QLatin1String("text-align: top;margin-top: 0px;font-size: 12px;font-weight: bold;"));
}
