#include "CommunicationAndData/access/accessmethodsystemhelper.h"

#include "CommunicationAndData/access/accessmethodsystem.h"

AccessMethodSystemHelper::AccessMethodSystemHelper()
{
    moveToThread(&m_thread);
    connect(this, SIGNAL(updateDomainList()), this, SLOT(privateGetDomains()));
    m_thread.start(QThread::InheritPriority);
    emit updateDomainList();
}

AccessMethodSystemHelper::~AccessMethodSystemHelper()
{
    m_thread.quit();
    m_thread.wait();
}

void AccessMethodSystemHelper::privateGetDomains()
{
    m_domainList = getServers();
    emit domainListUpdated(m_domainList);
}
