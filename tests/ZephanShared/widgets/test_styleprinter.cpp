#include "ZephanShared/widgets/styleprinter.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimeEdit>
#include <QToolButton>

namespace {

// The texts that the functions compose, each written out once.
const auto kNormal = QLatin1String("color: #0057B8; border: 1px solid #BABCBE; background-color: white; "
                                   "font-size: 12px;");
const auto kFocus = QLatin1String("color: #0057B8; border: 1px solid #0057B8; font-size: 12px;");
const auto kHoverBorder = QLatin1String("border: 1px solid #8DC8E8; font-size: 12px;");
const auto kDisabled = QLatin1String("border: 1px solid #BABCBE; background-color: #EFF0F0; color: #717074; "
                                     "font-size: 12px;");
const auto kInvalid = QLatin1String("border: 1px solid #BABCBE; background-color: #FFDDDD; font-size: 12px;");
const auto kAutofilled =
    QLatin1String("border: 1px solid #BABCBE; background-color: #F2F0A1; font-size: 12px;");
const auto kButtonFocus =
    QLatin1String("color: #0057B8; border: 1px solid #0057B8; background-color: #8DC8E8; "
                  "font-size: 12px; font-style: bold;");
const auto kButtonHover =
    QLatin1String("background-color: qlineargradient(x1: 0, y1: 0, x2: 0, y2: 1, stop: 0 transparent, "
                  "stop: 1 #F2F0A1); font-size: 12px;");
const auto kButtonPressed =
    QLatin1String("background-color: #FFE072; border: 2px inset #FFE072; font-size: 12px;");
const auto kFrame = QLatin1String(
    "color: #0057B8; border: 6px solid #BABCBE; background-color: white; font-size: 12px; "
    "background-color: white; "
    "border-top-color: qlineargradient(x1: 0, y1: 0, x2: 0, y2: 1, stop: 0 #8DC8E8, stop: 1 #0057B8); "
    "border-left-color: qlineargradient(x1: 0, y1: 0, x2: 1, y2: 0, stop: 0 #8DC8E8, stop: 1 #0057B8); "
    "border-right-color: qlineargradient(x1: 0, y1: 0, x2: 1, y2: 0, stop: 0 #0057B8, stop: 1 #8DC8E8); "
    "border-bottom-color: qlineargradient(x1: 0, y1: 0, x2: 0, y2: 1, stop: 0 #0057B8, stop: 1 #8DC8E8); "
    "padding: 20px;");

QString rule(const QString &selector, const QString &declarations)
{
    return selector + QLatin1String(" { ") + declarations + QLatin1String(" }");
}

QString fieldSheet(const QString &selector, const QString &state)
{
    const QLatin1String padding(" padding: 4px;");
    return rule(selector, state + padding) + QLatin1Char(' ') +
           rule(selector + QLatin1String(":focus"), kFocus + padding) + QLatin1Char(' ') +
           rule(selector + QLatin1String(":!focus:hover"), kHoverBorder + padding);
}

QString buttonSheet(const QString &selector)
{
    return rule(selector + QLatin1String(":hover"), kButtonHover) + QLatin1Char(' ') +
           rule(selector + QLatin1String(":focus"), kButtonFocus) + QLatin1Char(' ') +
           rule(selector + QLatin1String(":pressed"), kButtonPressed) + QLatin1Char(' ') +
           rule(selector + QLatin1String(":selected"), kNormal) + QLatin1Char(' ') +
           rule(selector + QLatin1String(":disabled"), kDisabled) + QLatin1Char(' ') + selector +
           QLatin1String(" { ") + kNormal +
           QLatin1String(" font-weight: bold; padding-top: 5px; padding-bottom: 5px; padding-left: 15px; "
                         "padding-right: 15px; } ");
}

/// The colour near a widget's right end, clear of borders and text.
QColor backgroundOf(QWidget *widget)
{
    const QImage image = widget->grab().toImage();
    return image.pixelColor(image.width() - 6, image.height() / 2);
}

QtMessageHandler previousHandler = nullptr;
QStringList styleWarnings;

void collectStyleWarnings(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (message.contains(QLatin1String("stylesheet"), Qt::CaseInsensitive))
        styleWarnings.append(message);
    previousHandler(type, context, message);
}

}  // namespace

class TestStylePrinter : public QObject
{
    Q_OBJECT

private slots:
    void palette_data();
    void palette();
    void text_data();
    void text();
    void messageBoxStylesDifferOnlyInTheSizeOfTheMessage();
    void everySheetIsUnderstood_data();
    void everySheetIsUnderstood();
    void fieldColours_data();
    void fieldColours();
    void aFocusedFieldShowsTheFocusBorderWhateverItsState();
};

void TestStylePrinter::palette_data()
{
    QTest::addColumn<QString>("role");
    QTest::addColumn<QString>("value");

    QTest::newRow("text is blue") << Palette::roleText << "#0057B8";
    QTest::newRow("frame is light blue") << Palette::roleFrame << "#8DC8E8";
    QTest::newRow("border is grey") << Palette::roleBorder << "#BABCBE";
    QTest::newRow("disabled background is pale grey") << Palette::roleDisabledBackground << "#EFF0F0";
    QTest::newRow("disabled text is dark grey") << Palette::roleDisabledText << "#717074";
    QTest::newRow("hover is pale yellow") << Palette::roleHover << "#F2F0A1";
    QTest::newRow("pressed is yellow") << Palette::rolePressed << "#FFE072";
    QTest::newRow("invalid is pale pink") << Palette::roleInvalid << "#FFDDDD";
    QTest::newRow("focus is light blue") << Palette::roleFocus << "#8DC8E8";
    QTest::newRow("accent is orange") << Palette::roleAccent << "#FF671F";
    QTest::newRow("highlight is lime") << Palette::roleHighlight << "#C4D600";
    QTest::newRow("dark is dark blue") << Palette::roleDark << "#003865";
    QTest::newRow("white is a name") << Palette::colorWhite << "white";
}

void TestStylePrinter::palette()
{
    QFETCH(QString, role);
    QFETCH(QString, value);
    QCOMPARE(role, value);
}

void TestStylePrinter::text_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("expected");

    QTest::newRow("normal") << StylePrinter::normalStyle(1) << QString(kNormal);
    QTest::newRow("normal with another width")
        << StylePrinter::normalStyle(6)
        << "color: #0057B8; border: 6px solid #BABCBE; background-color: white; font-size: 12px;";
    QTest::newRow("focus") << StylePrinter::focusStyle(1) << QString(kFocus);
    QTest::newRow("focus with another width")
        << StylePrinter::focusStyle(3) << "color: #0057B8; border: 3px solid #0057B8; font-size: 12px;";
    QTest::newRow("hover border") << StylePrinter::hoverBorderStyle(1) << QString(kHoverBorder);
    QTest::newRow("hover border with another width")
        << StylePrinter::hoverBorderStyle(2) << "border: 2px solid #8DC8E8; font-size: 12px;";
    QTest::newRow("disabled") << StylePrinter::disabledStyle() << QString(kDisabled);
    QTest::newRow("invalid") << StylePrinter::invalidStyle() << QString(kInvalid);
    QTest::newRow("autofilled") << StylePrinter::autofilledStyle() << QString(kAutofilled);
    QTest::newRow("button focus") << StylePrinter::buttonFocusStyle() << QString(kButtonFocus);
    QTest::newRow("button hover") << StylePrinter::buttonHoverStyle() << QString(kButtonHover);
    QTest::newRow("button pressed") << StylePrinter::buttonPressedStyle() << QString(kButtonPressed);
    QTest::newRow("button selected") << StylePrinter::buttonSelectedStyle() << QString(kNormal);
    QTest::newRow("push button, with the plain state last")
        << StylePrinter::pushButtonStyle(QStringLiteral("#ok")) << buttonSheet(QStringLiteral("#ok"));
    QTest::newRow("tool button")
        << StylePrinter::toolButtonStyle()
        << rule(QStringLiteral("QToolButton:focus"), kButtonFocus) + QLatin1Char(' ') +
               rule(QStringLiteral("QToolButton:hover"), kButtonHover) + QLatin1Char(' ') +
               rule(QStringLiteral("QToolButton:pressed"), kButtonPressed) +
               QLatin1String(" QToolButton { outline: none;border: none;padding: 0px;margin: 0px;"
                             "background-color: transparent; }");

    const QString box = QStringLiteral("QComboBox");
    QTest::newRow("a valid field is normal")
        << StylePrinter::fieldStyle(box, true, false, false) << fieldSheet(box, kNormal);
    QTest::newRow("an autofilled field is yellow")
        << StylePrinter::fieldStyle(box, true, true, false) << fieldSheet(box, kAutofilled);
    QTest::newRow("an invalid field is pink")
        << StylePrinter::fieldStyle(box, false, false, false) << fieldSheet(box, kInvalid);
    QTest::newRow("a field with valid false and autofilled true has the pink background")
        << StylePrinter::fieldStyle(box, false, true, false) << fieldSheet(box, kInvalid);
    QTest::newRow("a disabled field is grey")
        << StylePrinter::fieldStyle(box, true, false, true) << fieldSheet(box, kDisabled);
    QTest::newRow("a disabled field ignores valid")
        << StylePrinter::fieldStyle(box, false, false, true) << fieldSheet(box, kDisabled);
    QTest::newRow("a disabled field ignores autofilled")
        << StylePrinter::fieldStyle(box, true, true, true) << fieldSheet(box, kDisabled);
    QTest::newRow("a line edit is a field of its class") << StylePrinter::lineEditStyle(false, true, false)
                                                         << fieldSheet(QStringLiteral("QLineEdit"), kInvalid);

    const QLatin1String right(" padding-right: 20px;");
    QTest::newRow("time edit")
        << StylePrinter::timeEditStyle()
        << rule(QStringLiteral("QTimeEdit"), kNormal + right) + QLatin1Char(' ') +
               rule(QStringLiteral("QTimeEdit:disabled"), kDisabled + right) + QLatin1Char(' ') +
               rule(QStringLiteral("QTimeEdit:focus"), kFocus + right) + QLatin1Char(' ') +
               rule(QStringLiteral("QTimeEdit:hover"), kHoverBorder + right) +
               QLatin1String(" QTimeEdit::up-button { subcontrol-origin: border; subcontrol-position: top "
                             "right; width: 20px; }"
                             " QTimeEdit::down-button { subcontrol-origin: border; subcontrol-position: "
                             "bottom right; width: 20px; }"
                             " QTimeEdit::up-arrow { image: url(:/icons/up_arrow.gif); width: 15px; "
                             "height: 5px; }"
                             " QTimeEdit::down-arrow { image: url(:/icons/down_arrow.gif); width: 15px; "
                             "height: 5px; }");
    QTest::newRow("dialog")
        << StylePrinter::dialogStyle()
        << rule(QStringLiteral("QDialog"), kFrame) +
               QLatin1String(" QLabel, QTreeWidget, QCheckBox { color: #0057B8; background-color: white; }"
                             " QLabel#title_label { color: #0057B8; font-size: 14px; font-weight: bold; }"
                             " QLabel#information_label { font-size: 12px; }"
                             " QWidget#scroll_widget { background-color: transparent; }");
    QTest::newRow("message box")
        << StylePrinter::messageBoxStyle(true)
        << rule(QStringLiteral("QMessageBox"), kFrame) + QLatin1Char(' ') +
               buttonSheet(QStringLiteral("QMessageBox QPushButton")) +
               QLatin1String(" QLabel#qt_msgbox_informativelabel { color: #0057B8; background-color: white; }"
                             " QLabel#qt_msgbox_label { color: #0057B8; background-color: white; "
                             "font-size: 14px; }");
    QTest::newRow("title label")
        << StylePrinter::titleLabelStyle()
        << "QLabel { color: #717074; font-family: \"Arial\"; font-weight: 630; font-size: 26px; }";
    QTest::newRow("field label")
        << StylePrinter::fieldLabelStyle()
        << "QLabel { color: #0057B8; border: none; border-top: 1px dashed #BABCBE; background-color: "
           "transparent; text-align: top;margin-top: 0px;font-size: 12px;font-weight: bold; }";
}

void TestStylePrinter::text()
{
    QFETCH(QString, style);
    QFETCH(QString, expected);
    QCOMPARE(style, expected);
}

void TestStylePrinter::messageBoxStylesDifferOnlyInTheSizeOfTheMessage()
{
    const QString large = StylePrinter::messageBoxStyle(true);
    const QString small = StylePrinter::messageBoxStyle(false);
    const int label = large.indexOf(QLatin1String("QLabel#qt_msgbox_label"));
    QVERIFY(label > 0);
    QCOMPARE(small.left(label), large.left(label));
    QCOMPARE(small.mid(label), large.mid(label).replace(QLatin1String("14px"), QLatin1String("12px")));
    QVERIFY(small != large);
}

void TestStylePrinter::everySheetIsUnderstood_data()
{
    QTest::addColumn<QString>("style");

    QTest::newRow("push button") << StylePrinter::pushButtonStyle(QStringLiteral("QPushButton"));
    QTest::newRow("tool button") << StylePrinter::toolButtonStyle();
    QTest::newRow("line edit") << StylePrinter::lineEditStyle(true, false, false);
    QTest::newRow("time edit") << StylePrinter::timeEditStyle();
    QTest::newRow("dialog") << StylePrinter::dialogStyle();
    QTest::newRow("large message box") << StylePrinter::messageBoxStyle(true);
    QTest::newRow("small message box") << StylePrinter::messageBoxStyle(false);
    QTest::newRow("title label") << StylePrinter::titleLabelStyle();
    QTest::newRow("field label") << StylePrinter::fieldLabelStyle();
    QTest::newRow("state style without a selector") << StylePrinter::buttonPressedStyle();
}

void TestStylePrinter::everySheetIsUnderstood()
{
    QFETCH(QString, style);
    styleWarnings.clear();
    previousHandler = qInstallMessageHandler(collectStyleWarnings);
    QWidget window;
    new QPushButton(&window);
    new QToolButton(&window);
    new QTimeEdit(&window);
    new QLabel(&window);
    window.setStyleSheet(style);
    window.grab();
    qInstallMessageHandler(previousHandler);
    QCOMPARE(styleWarnings, QStringList());
}

void TestStylePrinter::fieldColours_data()
{
    QTest::addColumn<bool>("valid");
    QTest::addColumn<bool>("autofilled");
    QTest::addColumn<bool>("disabled");
    QTest::addColumn<QString>("color");

    QTest::newRow("a valid field shows white") << true << false << false << "white";
    QTest::newRow("an autofilled field shows yellow") << true << true << false << "#F2F0A1";
    QTest::newRow("an invalid field shows pink") << false << false << false << "#FFDDDD";
    QTest::newRow("an invalid and autofilled field shows pink") << false << true << false << "#FFDDDD";
    QTest::newRow("a disabled field shows grey") << false << true << true << "#EFF0F0";
}

void TestStylePrinter::fieldColours()
{
    QFETCH(bool, valid);
    QFETCH(bool, autofilled);
    QFETCH(bool, disabled);
    QFETCH(QString, color);
    QLineEdit edit;
    edit.setStyleSheet(StylePrinter::lineEditStyle(valid, autofilled, disabled));
    edit.resize(120, 25);
    QCOMPARE(backgroundOf(&edit), QColor(color));
}

void TestStylePrinter::aFocusedFieldShowsTheFocusBorderWhateverItsState()
{
    QLineEdit edit;
    edit.setStyleSheet(StylePrinter::lineEditStyle(false, true, false));
    edit.resize(120, 25);
    edit.show();
    QApplication::setActiveWindow(&edit);
    edit.setFocus();
    QTRY_VERIFY(edit.hasFocus());
    const QImage image = edit.grab().toImage();
    QCOMPARE(image.pixelColor(0, image.height() / 2), QColor(Palette::roleText));
}

QTEST_MAIN(TestStylePrinter)
#include "test_styleprinter.moc"
