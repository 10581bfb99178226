#include "ZephanShared/toolkit/abstractapplicationfactory.h"

#include <QObject>

#include <csignal>

/// A plug-in that ends its process when its root object is made.
class Crashing : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID AbstractApplicationFactory_iid)

public:
    Crashing()
    {
        std::signal(SIGSEGV, SIG_DFL);
        std::raise(SIGSEGV);
    }
};

#include "crashing.moc"
