#include "sampleapplication.h"

#include <QObject>

/// The application for oximetry at home of the demonstration workstation.
class NightOximetryPlugin : public QObject, public AbstractApplicationFactory
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID AbstractApplicationFactory_iid)
    Q_INTERFACES(AbstractApplicationFactory)

public:
    AbstractApplication *application(int edition) override;
    QString applicationName() const override;

private:
    SampleApplication m_application{
        "NightOximetry",
        QT_TRANSLATE_NOOP("NightOximetry", "Night oximetry"),
        {
            {"device", QT_TRANSLATE_NOOP("NightOximetry", "Device"), true},
            {"nights", QT_TRANSLATE_NOOP("NightOximetry", "Nights"), false},
            {"weight", QT_TRANSLATE_NOOP("NightOximetry", "Weight"), false},
            {"oxygen", QT_TRANSLATE_NOOP("NightOximetry", "Oxygen therapy"), false},
            {"mask", QT_TRANSLATE_NOOP("NightOximetry", "Mask"), false},
            {"sleepDiary", QT_TRANSLATE_NOOP("NightOximetry", "Sleep diary"), false},
        },
        {AbstractApplication::PersonalId, AbstractApplication::Birthdate}};
};

AbstractApplication *NightOximetryPlugin::application(int edition)
{
    return edition == Edition ? &m_application : nullptr;
}

QString NightOximetryPlugin::applicationName() const
{
    return m_application.name();
}

#include "nightoximetryplugin.moc"
