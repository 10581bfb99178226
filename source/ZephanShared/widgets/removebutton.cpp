#include "ZephanShared/widgets/removebutton.h"

#include "ZephanShared/widgets/returnkey.h"
#include "ZephanShared/widgets/styleprinter.h"

#include <QIcon>
#include <QMessageBox>

RemoveButton::RemoveButton(bool withStyle, QWidget *parent)
    : QToolButton(parent)
    , m_withStyle(withStyle)
{
    setIcon(QIcon(QStringLiteral(":/icons/delete.png")));
    setAccessibleName(tr("Remove custom field"));
    clickByReturn(this);
    connect(this, SIGNAL(clicked()), this, SLOT(confirm()));
}

void RemoveButton::confirm()
{
    if (askWhetherToRemove())
        emit deleteCustomField();
}

bool RemoveButton::askWhetherToRemove()
{
    QMessageBox box;
    if (m_withStyle) {
        box.setStyleSheet(StylePrinter::messageBoxStyle(true));
        box.setParent(this, Qt::Dialog | Qt::FramelessWindowHint);
        box.setText(tr("Removing custom field"));
        box.setInformativeText(tr("Removing custom field will delete it permanently"));
    } else {
        box.setText(tr("Removing custom field will delete it permanently."));
        box.setInformativeText(tr("Continue?"));
    }
    box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
    box.setButtonText(QMessageBox::Ok, tr("Ok"));
    box.setButtonText(QMessageBox::Cancel, tr("Cancel"));
    box.setDefaultButton(QMessageBox::Cancel);
    return box.exec() == QMessageBox::Ok;
}
