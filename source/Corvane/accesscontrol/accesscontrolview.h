#ifndef ACCESSCONTROLVIEW_H
#define ACCESSCONTROLVIEW_H

#include "ZephanShared/widgets/baseview.h"

class SupportConnectionHandler;
class QVBoxLayout;

/// The administrator's view of users, roles, organisations and departments.
class AccesscontrolView : public BaseView
{
    Q_OBJECT

public:
    /// \param handler  the connection to the access tables; not owned, may be null
    AccesscontrolView(SupportConnectionHandler *handler, QWidget *parent);

    /// Makes the view ready to be shown: asks for a connection when there is none.
    ///
    /// \return  whether there is a connection now
    bool ensureConnection();

private:
    QVBoxLayout *m_layout;
    SupportConnectionHandler *m_handler;
};

#endif
