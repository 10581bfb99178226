#include "ZephanShared/widgets/combowithuuid.h"

ComboWithUuid::ComboWithUuid(QWidget *parent)
    : QComboBox(parent)
{
    connect(this, SIGNAL(currentIndexChanged(int)), this, SLOT(sendUuidSignal()));
}

void ComboWithUuid::sendUuidSignal()
{
    const UuidString uuid(currentData(Qt::UserRole).toString());
    emit currentItemChanged(MappedStrings{uuid, {}});
}
