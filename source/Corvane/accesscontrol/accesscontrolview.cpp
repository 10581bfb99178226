#include "Corvane/accesscontrol/accesscontrolview.h"

#include "Corvane/accesscontrol/supportconnectionhandler.h"

#include <QVBoxLayout>

AccesscontrolView::AccesscontrolView(SupportConnectionHandler *handler, QWidget *parent)
    : BaseView(parent)
    , m_layout(new QVBoxLayout(this))
    , m_handler(handler)
{
    m_layout->addStretch();
    if (m_handler)
        m_layout->addLayout(m_handler->createConnectionRow());
}

bool AccesscontrolView::ensureConnection()
{
    if (!m_handler)
        return false;
    if (!m_handler->isConnected()) {
        m_handler->setOfflineAllowed(true);
        m_handler->connectionOptions();
    }
    return m_handler->isConnected();
}
