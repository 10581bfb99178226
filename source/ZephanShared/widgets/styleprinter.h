#ifndef STYLEPRINTER_H
#define STYLEPRINTER_H

#include <QString>

/// The palette of the suite: a base layer of colours, and a role layer that names them by use.
namespace Palette {

extern const QString colorOrange;
extern const QString colorLightBlue;
extern const QString colorBlue;
extern const QString colorDarkBlue;
extern const QString colorLime;
extern const QString colorDarkGrey;
extern const QString colorPaleGrey;
extern const QString colorGrey;
extern const QString colorWhite;
extern const QString colorPaleYellow;
extern const QString colorPalePink;
extern const QString colorYellow;

extern const QString roleText;    ///< fields, labels and dialogs, and the focus border
extern const QString roleFrame;   ///< hover border, one end of the dialog frame's gradients
extern const QString roleBorder;  ///< the normal border
extern const QString roleDisabledBackground;
extern const QString roleDisabledText;  ///< disabled widgets, and the big titles
extern const QString roleHover;         ///< button hover gradient, autofilled field background
extern const QString rolePressed;
extern const QString roleInvalid;  ///< background of a field with an invalid value
extern const QString roleFocus;    ///< background of a focused button
extern const QString roleAccent;
extern const QString roleHighlight;
extern const QString roleDark;

}  // namespace Palette

/// Composes all style sheets of the program from the palette.
///
/// The state styles give declarations without a selector; the others give whole style sheets.
class StylePrinter
{
public:
    // State styles. Widths are in pixels.
    static QString normalStyle(int width);
    static QString focusStyle(int width);
    static QString hoverBorderStyle(int width);
    static QString disabledStyle();
    static QString invalidStyle();
    static QString autofilledStyle();
    static QString buttonFocusStyle();
    static QString buttonHoverStyle();
    static QString buttonPressedStyle();
    static QString buttonSelectedStyle();

    // Whole style sheets.
    static QString pushButtonStyle(const QString &selector);
    static QString toolButtonStyle();
    /// An invalid field stays pink when it is autofilled too; a disabled one ignores both.
    static QString fieldStyle(const QString &selector, bool valid, bool autofilled, bool disabled);
    static QString lineEditStyle(bool valid, bool autofilled, bool disabled);
    static QString timeEditStyle();
    static QString dialogStyle();
    /// \param large  the message in 14 px instead of 12
    static QString messageBoxStyle(bool large);
    static QString titleLabelStyle();
    static QString fieldLabelStyle();
};

#endif
