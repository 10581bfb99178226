#ifndef FORMPARTS_H
#define FORMPARTS_H

#include <QString>
#include <QVariant>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QFileDialog;
class QFrame;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;
class QVBoxLayout;
class QWidget;

/// The parts from which the settings pages are built, with the sizes that all forms share. Everything that is
/// made here gets its text later and belongs to the layout's widget.
namespace FormParts {

constexpr int kLabelHeight = 20;
constexpr int kFieldHeight = 25;
constexpr int kButtonHeight = 30;
constexpr int kFrameHeight = 410;

/// A framed column at least `minimumWidth` wide and `kFrameHeight` high, with a vertical layout.
QFrame *makeFrame(int minimumWidth, QWidget *parent);

/// The layout of a page's columns: side by side, or one below the other where the page is too narrow for
/// that.
QHBoxLayout *makeColumns(QWidget *content);

/// Puts `content` into a frameless area of `page` that scrolls when the page is too small for it. The
/// keyboard passes it over on its way from field to field.
QScrollArea *makeScrollable(QWidget *content, QWidget *page);

QLabel *addTitle(QBoxLayout *layout);
QLabel *addLabel(QBoxLayout *layout);
QCheckBox *addCheckBox(QBoxLayout *layout, const QString &name);
QComboBox *addComboBox(QBoxLayout *layout, const QString &name);
QPushButton *addButton(QBoxLayout *layout, const QString &name);
/// A row of an edit for a path and a button.
QLineEdit *addEditWithButton(QBoxLayout *layout, const QString &name, QPushButton *&button);

void setBold(QLabel *label);

/// Keeps the wheel from changing a widget that doesn't have the focus: the page scrolls instead.
void leaveWheelToPage(QWidget *widget);

/// Sets a label's text and names the widget that it stands by after it.
void setLabelText(QLabel *label, QWidget *field, const QString &text);

/// Selects the item with this data, or none.
void selectData(QComboBox *box, const QVariant &data);

/// Runs a file dialog with the labels that all of them have; the first choice goes into the edit.
///
/// \return  false when the dialog was cancelled
bool chooseFile(QFileDialog &dialog, QLineEdit *edit);

}  // namespace FormParts

#endif
