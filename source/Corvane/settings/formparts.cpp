#include "Corvane/settings/formparts.h"

#include "ZephanShared/toolkit/nativepath.h"
#include "ZephanShared/widgets/onelinevalidator.h"
#include "ZephanShared/widgets/returnkey.h"
#include "ZephanShared/widgets/wrappingcheckbox.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QFileDialog>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

namespace {

// Narrow, so that two columns and a scroll bar fit the smallest window.
constexpr int kFrameMargin = 6;
constexpr int kPageMargin = 2;

/// A frame with a least size that still grows with what it holds.
class ColumnFrame : public QFrame
{
public:
    ColumnFrame(const QSize &leastSize, QWidget *parent)
        : QFrame(parent)
        , m_leastSize(leastSize)
    {}

    QSize minimumSizeHint() const override
    {
        return QFrame::minimumSizeHint().expandedTo(m_leastSize);
    }

private:
    QSize m_leastSize;
};

/// Columns that stand side by side, or one below the other when a page is too narrow for that: with large
/// letters a page scrolls up and down and not sideways.
class PageColumns : public QHBoxLayout
{
public:
    using QHBoxLayout::QHBoxLayout;

    QSize minimumSize() const override
    {
        int widest = 0;
        for (int i = 0; i < count(); ++i)
            widest = std::max(widest, itemAt(i)->minimumSize().width());
        return QSize(marginSize().width() + widest, QHBoxLayout::minimumSize().height());
    }

    /// \param room      what the page has without scroll bars
    /// \param barWidth  what the bar takes of it where the page scrolls up and down
    void arrange(QSize room, int barWidth)
    {
        const QSize needed = sizeSideBySide();
        if (needed.height() > room.height())
            room.rwidth() -= barWidth;
        const Direction wanted = needed.width() > room.width() ? TopToBottom : LeftToRight;
        if (direction() == wanted)
            return;
        setDirection(wanted);
        update();
    }

private:
    QSize marginSize() const
    {
        const QMargins margins = contentsMargins();
        return QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
    }

    QSize sizeSideBySide() const
    {
        QSize size((count() - 1) * spacing(), 0);
        for (int i = 0; i < count(); ++i) {
            const QSize column = itemAt(i)->minimumSize();
            size.rwidth() += column.width();
            size.setHeight(std::max(size.height(), column.height()));
        }
        return size + marginSize();
    }
};

/// Scrolls a page, whose columns it arranges by the room that there is.
class PageArea : public QScrollArea
{
public:
    using QScrollArea::QScrollArea;

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest)
            arrangeColumns();
        return QScrollArea::event(event);
    }

private:
    void arrangeColumns()
    {
        auto *columns = widget() ? dynamic_cast<PageColumns *>(widget()->layout()) : nullptr;
        if (columns)
            columns->arrange(maximumViewportSize(), verticalScrollBar()->sizeHint().width());
    }
};

/// Leaves the wheel to the page that scrolls: only a widget that has the focus takes it.
class WheelGuard : public QObject
{
public:
    explicit WheelGuard(QWidget *guarded)
        : QObject(guarded)
    {
        guarded->setFocusPolicy(Qt::StrongFocus);
        guarded->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Wheel || static_cast<QWidget *>(watched)->hasFocus())
            return false;
        event->ignore();
        return true;
    }
};

}  // namespace

namespace FormParts {

QFrame *makeFrame(int minimumWidth, QWidget *parent)
{
    auto *frame = new ColumnFrame(QSize(minimumWidth, kFrameHeight), parent);
    frame->setFrameShape(QFrame::StyledPanel);
    auto *layout = new QVBoxLayout(frame);
    layout->setContentsMargins(kFrameMargin, kFrameMargin, kFrameMargin, kFrameMargin);
    return frame;
}

QHBoxLayout *makeColumns(QWidget *content)
{
    auto *columns = new PageColumns(content);
    columns->setContentsMargins(kPageMargin, kPageMargin, kPageMargin, kPageMargin);
    columns->setSpacing(2 * kPageMargin);
    return columns;
}

QScrollArea *makeScrollable(QWidget *content, QWidget *page)
{
    auto *area = new PageArea(page);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(content);
    return area;
}

QLabel *addTitle(QBoxLayout *layout)
{
    QLabel *title = addLabel(layout);
    setBold(title);
    return title;
}

QLabel *addLabel(QBoxLayout *layout)
{
    auto *label = new QLabel;
    label->setFixedHeight(kLabelHeight);
    layout->addWidget(label);
    return label;
}

QCheckBox *addCheckBox(QBoxLayout *layout, const QString &name)
{
    auto *box = new WrappingCheckBox;
    box->setObjectName(name);
    layout->addWidget(box);
    return box;
}

QComboBox *addComboBox(QBoxLayout *layout, const QString &name)
{
    auto *box = new QComboBox;
    leaveWheelToPage(box);
    box->setObjectName(name);
    box->setFixedHeight(kFieldHeight);
    layout->addWidget(box);
    return box;
}

QPushButton *addButton(QBoxLayout *layout, const QString &name)
{
    auto *button = new QPushButton;
    button->setObjectName(name);
    button->setFixedHeight(kButtonHeight);
    clickByReturn(button);
    layout->addWidget(button);
    return button;
}

QLineEdit *addEditWithButton(QBoxLayout *layout, const QString &name, QPushButton *&button)
{
    auto *row = new QHBoxLayout;
    layout->addLayout(row);
    auto *edit = new QLineEdit;
    edit->setObjectName(name);
    edit->setFixedHeight(kFieldHeight);
    new OneLineValidator(edit);
    row->addWidget(edit);
    button = addButton(row, name + QStringLiteral("_browse"));
    return edit;
}

void setBold(QLabel *label)
{
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
}

void leaveWheelToPage(QWidget *widget)
{
    new WheelGuard(widget);
}

void setLabelText(QLabel *label, QWidget *field, const QString &text)
{
    label->setText(text);
    label->setBuddy(field);
    field->setAccessibleName(text);
}

void selectData(QComboBox *box, const QVariant &data)
{
    box->setCurrentIndex(box->findData(data));
}

bool chooseFile(QFileDialog &dialog, QLineEdit *edit)
{
    dialog.setLabelText(QFileDialog::Accept, QCoreApplication::translate("FormParts", "Select"));
    dialog.setLabelText(QFileDialog::Reject, QCoreApplication::translate("FormParts", "Cancel"));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return false;
    edit->setText(nativePath(dialog.selectedFiles().constFirst()));
    return true;
}

}  // namespace FormParts
