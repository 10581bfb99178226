#ifndef COMBOWITHUUID_H
#define COMBOWITHUUID_H

#include "ZephanShared/toolkit/mappedstrings.h"

#include <QComboBox>

/// A combo box whose entries carry a key as their `Qt::UserRole` data.
class ComboWithUuid : public QComboBox
{
    Q_OBJECT

public:
    explicit ComboWithUuid(QWidget *parent = nullptr);

signals:
    /// \param uuid  the key of the entry that is now current, without values; the nil UUID where the entry
    ///              has no data
    void currentItemChanged(MappedStrings uuid);

public slots:
    void sendUuidSignal();
};

#endif
