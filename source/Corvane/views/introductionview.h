#ifndef INTRODUCTIONVIEW_H
#define INTRODUCTIONVIEW_H

#include "ZephanShared/widgets/baseview.h"

class QGridLayout;
class QToolButton;
class QVBoxLayout;
class SupportConnectionHandler;

/// The home screen after sign-in: the product label and the large buttons that lead to the management views.
class IntroductionView : public BaseView
{
    Q_OBJECT

public:
    /// \param handler  as for the other views; the home screen itself needs no connection
    IntroductionView(SupportConnectionHandler *handler, QWidget *parent);

    void updateTexts() override;

signals:
    void settingsClicked();
    void databaseClicked();
    void accessClicked();
    void auditTrailClicked();

public slots:
    void disableAuditTrailView(bool disable);
    void disableAccessControlView(bool disable);

private:
    QToolButton *createButton(const QString &name, const QString &icon, const char *signal);
    QGridLayout *createButtonRow();
    void widenAlike();

    QVBoxLayout *m_layout;
    QToolButton *m_settingsButton;
    QToolButton *m_databaseButton;
    QToolButton *m_accessButton;
    QToolButton *m_auditTrailButton;
};

#endif
