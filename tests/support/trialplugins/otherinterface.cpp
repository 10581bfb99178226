#include <QObject>
#include <QtPlugin>

/// A sound plug-in of some other program.
class OtherInterface : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "SomethingElse")
};

#include "otherinterface.moc"
