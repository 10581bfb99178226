#include "remotecontrol.h"

#include <QGenericPlugin>

/// Brings the remote control into a program whose environment asks for it by QT_QPA_GENERIC_PLUGINS.
class RemoteControlPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "remotecontrol.json")

public:
    QObject *create(const QString &, const QString &socketPath) override
    {
        return new RemoteControl(socketPath);
    }
};

#include "plugin.moc"
