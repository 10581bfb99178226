#include "Corvane/settings/formparts.h"

#include "ZephanShared/toolkit/nativepath.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>

namespace FormParts {

QFrame *makeFrame(int minimumWidth, QWidget *parent)
{
    auto *frame = new QFrame(parent);
    frame->setFrameShape(QFrame::StyledPanel);
    frame->setMinimumSize(minimumWidth, kFrameHeight);
    new QVBoxLayout(frame);
    return frame;
}

QScrollArea *makeScrollable(QWidget *content, QWidget *page)
{
    auto *area = new QScrollArea(page);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    area->setWidget(content);
    return area;
}

QLabel *addTitle(QBoxLayout *layout)
{
    QLabel *title = addLabel(layout);
    QFont font = title->font();
    font.setBold(true);
    title->setFont(font);
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
    auto *box = new QCheckBox;
    box->setObjectName(name);
    layout->addWidget(box);
    return box;
}

QComboBox *addComboBox(QBoxLayout *layout, const QString &name)
{
    auto *box = new QComboBox;
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
    row->addWidget(edit);
    button = addButton(row, name + QStringLiteral("_browse"));
    return edit;
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
