#ifndef BASEVIEW_H
#define BASEVIEW_H

#include "ZephanShared/toolkit/actions.h"
#include "ZephanShared/toolkit/uuidstring.h"
#include "ZephanShared/toolkit/zephanerror.h"

#include <QVariant>
#include <QWidget>

/// Base of the full-size views and the settings pages: the two signals by which everything reports to the
/// audit trail, and texts that follow the language.
class BaseView : public QWidget
{
    Q_OBJECT

public:
    explicit BaseView(QWidget *parent = nullptr);

    /// Sets every text that the view shows. Called again whenever the language changes.
    virtual void updateTexts();

signals:
    void logAction(Actions::Action action, Actions::ActionType actionType,
                   UuidString databaseKey = UuidString(), QString databaseName = QString(),
                   QString serverInfo = QString(), QVariant info = QVariant());
    void logError(Actions::Action action, ZephanError errorCode, QVariant errorData);

protected:
    void changeEvent(QEvent *event) override;
};

#endif
