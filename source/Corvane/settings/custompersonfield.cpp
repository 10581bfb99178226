#include "Corvane/settings/custompersonfield.h"

#include "Corvane/settings/formparts.h"
#include "ZephanShared/widgets/removebutton.h"
#include "ZephanShared/widgets/returnkey.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QToolButton>

#include <utility>

namespace {

constexpr int kVisibleIndex = 0;
constexpr int kHiddenIndex = 1;
constexpr int kLineTypes = 2;
constexpr int kSpacing = 3;

}  // namespace

CustomPersonField::CustomPersonField(QWidget *parent)
    : QWidget(parent)
{
    setFixedHeight(FormParts::kFieldHeight);
}

void CustomPersonField::build()
{
    if (isBuilt())
        return;
    m_up = makeArrow(Qt::UpArrow);
    m_down = makeArrow(Qt::DownArrow);
    m_name = new QLineEdit(this);
    m_visibility = makeChoice(QStringLiteral("custom_field_visibility"));
    m_lines = makeChoice(QStringLiteral("custom_field_lines"));
    m_remove = new RemoveButton(false, this);
    layOut();
    updateTexts();
    showField();
    connectWidgets();
}

void CustomPersonField::connectWidgets()
{
    connect(m_up, SIGNAL(clicked()), this, SLOT(orderUp()));
    connect(m_down, SIGNAL(clicked()), this, SLOT(orderDown()));
    connect(m_name, SIGNAL(editingFinished()), this, SLOT(sync()));
    connect(m_name, SIGNAL(editingFinished()), this, SLOT(rename()));
    connect(m_visibility, SIGNAL(currentIndexChanged(int)), this, SLOT(sync()));
    connect(m_lines, SIGNAL(currentIndexChanged(int)), this, SLOT(sync()));
    connect(m_remove, SIGNAL(deleteCustomField()), this, SLOT(removal()));
}

QToolButton *CustomPersonField::makeArrow(Qt::ArrowType arrow)
{
    auto *button = new QToolButton(this);
    button->setArrowType(arrow);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setFixedSize(FormParts::kFieldHeight, FormParts::kFieldHeight);
    clickByReturn(button);
    return button;
}

QComboBox *CustomPersonField::makeChoice(const QString &name)
{
    auto *box = new QComboBox(this);
    box->setObjectName(name);
    box->setFixedHeight(FormParts::kFieldHeight);
    box->addItems({QString(), QString()});
    FormParts::leaveWheelToPage(box);
    return box;
}

void CustomPersonField::layOut()
{
    m_up->setObjectName(QStringLiteral("custom_field_up"));
    m_down->setObjectName(QStringLiteral("custom_field_down"));
    m_name->setObjectName(QStringLiteral("custom_field_name"));
    m_name->setFixedHeight(FormParts::kFieldHeight);
    m_remove->setObjectName(QStringLiteral("custom_field_remove"));
    m_remove->setFocusPolicy(Qt::StrongFocus);
    m_remove->setFixedSize(FormParts::kFieldHeight, FormParts::kFieldHeight);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSpacing);
    for (QWidget *widget : tabStops()) {
        layout->addWidget(widget, widget == m_name ? 1 : 0);
        widget->show();
    }
}

void CustomPersonField::updateTexts()
{
    if (!isBuilt())
        return;
    m_up->setToolTip(tr("Move up"));
    m_up->setAccessibleName(tr("Move up"));
    m_down->setToolTip(tr("Move down"));
    m_down->setAccessibleName(tr("Move down"));
    m_name->setAccessibleName(tr("Name of the custom field"));
    m_visibility->setAccessibleName(tr("Visibility of the custom field"));
    m_visibility->setItemText(kVisibleIndex, tr("Visible"));
    m_visibility->setItemText(kHiddenIndex, tr("Not visible"));
    m_lines->setAccessibleName(tr("Lines of the custom field"));
    m_lines->setItemText(0, tr("One line"));
    m_lines->setItemText(1, tr("Multi line"));
}

void CustomPersonField::setField(const CustomField &field)
{
    setContent(field);
    m_removed = false;
}

void CustomPersonField::setContent(const CustomField &field)
{
    m_field = field;
    if (m_field.name.isEmpty())
        m_field.name = tr("New field");
    if (m_field.lineType < 0 || m_field.lineType >= kLineTypes)
        m_field.lineType = 0;
    if (isBuilt())
        showField();
}

void CustomPersonField::showField()
{
    const QSignalBlocker visibilityBlocker(m_visibility);
    const QSignalBlocker linesBlocker(m_lines);
    if (m_name->text() != m_field.name) {
        m_name->setText(m_field.name);
        m_name->setCursorPosition(0);  // a long name shows its beginning
    }
    m_visibility->setCurrentIndex(m_field.visible ? kVisibleIndex : kHiddenIndex);
    m_lines->setCurrentIndex(m_field.lineType);
    describeWidgets();
}

void CustomPersonField::describeWidgets()
{
    for (QWidget *widget :
         {static_cast<QWidget *>(m_up), static_cast<QWidget *>(m_down), static_cast<QWidget *>(m_visibility),
          static_cast<QWidget *>(m_lines), static_cast<QWidget *>(m_remove)})
        widget->setAccessibleDescription(m_field.name);
}

void CustomPersonField::setId(int id)
{
    m_field.id = id;
}

bool CustomPersonField::takeMoveUp()
{
    return std::exchange(m_moveUp, false);
}

bool CustomPersonField::takeMoveDown()
{
    return std::exchange(m_moveDown, false);
}

void CustomPersonField::editName()
{
    m_name->setFocus(Qt::OtherFocusReason);
    m_name->selectAll();
}

QVector<QWidget *> CustomPersonField::tabStops() const
{
    if (!isBuilt())
        return {};
    return {m_up, m_down, m_name, m_visibility, m_lines, m_remove};
}

void CustomPersonField::sync()
{
    if (!isBuilt())
        return;
    const QString name = cleanCustomName(m_name->text());
    m_field.name = name.isEmpty() ? tr("New field") : name;
    if (m_name->text() != m_field.name)
        m_name->setText(m_field.name);
    m_field.visible = m_visibility->currentIndex() == kVisibleIndex;
    m_field.lineType = m_lines->currentIndex();
    describeWidgets();
}

void CustomPersonField::rename()
{
    sync();
    emit nameChange();
}

void CustomPersonField::orderUp()
{
    if (m_field.id < 2)
        return;
    m_moveUp = true;
    emit refresh();
}

void CustomPersonField::orderDown()
{
    m_moveDown = true;
    emit refresh();
}

void CustomPersonField::removal()
{
    m_removed = true;
    emit refresh();
}

void CustomPersonField::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        updateTexts();
    QWidget::changeEvent(event);
}

void CustomPersonField::paintEvent(QPaintEvent *event)
{
    emit exposed();
    QWidget::paintEvent(event);
}
