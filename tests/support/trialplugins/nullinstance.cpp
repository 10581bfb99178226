#include "ZephanShared/toolkit/abstractapplicationfactory.h"

#include <QObject>

#include <cstddef>

/// A plug-in that has no memory left for its root object.
class NullInstance : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID AbstractApplicationFactory_iid)

public:
    static void *operator new(std::size_t) noexcept
    {
        return nullptr;
    }

    static void operator delete(void *) {}
};

#include "nullinstance.moc"
