#ifndef ACCESSMETHODSYSTEMHELPER_H
#define ACCESSMETHODSYSTEMHELPER_H

#include <QObject>
#include <QStringList>
#include <QThread>

/// Fetches the list of domain controllers in a thread of its own, since a network can take long to answer.
///
/// The first fetch begins at construction. The object lives in its thread and so has no parent; destroying it
/// waits for a fetch that is under way.
class AccessMethodSystemHelper : public QObject
{
    Q_OBJECT

public:
    AccessMethodSystemHelper();
    ~AccessMethodSystemHelper() override;

signals:
    /// Asks for a fetch.
    void updateDomainList();
    /// \param domainList  the domain controllers, each with "\\" in front
    void domainListUpdated(QStringList domainList);

private slots:
    void privateGetDomains();

private:
    QStringList m_domainList;
    QThread m_thread;
};

#endif
