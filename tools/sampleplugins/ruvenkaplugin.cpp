#include "sampleapplication.h"

#include <QObject>

/// The spirometry application of the demonstration workstation.
class RuvenkaPlugin : public QObject, public AbstractApplicationFactory
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID AbstractApplicationFactory_iid)
    Q_INTERFACES(AbstractApplicationFactory)

public:
    AbstractApplication *application(int edition) override;
    QString applicationName() const override;

private:
    SampleApplication m_application{
        "Ruvenka",
        QT_TRANSLATE_NOOP("Ruvenka", "Spirometry"),
        {
            {"height", QT_TRANSLATE_NOOP("Ruvenka", "Height"), false},
            {"weight", QT_TRANSLATE_NOOP("Ruvenka", "Weight"), false},
            {"position", QT_TRANSLATE_NOOP("Ruvenka", "Position"), false},
            {"smoking", QT_TRANSLATE_NOOP("Ruvenka", "Smoking history"), false},
            {"packYears", QT_TRANSLATE_NOOP("Ruvenka", "Pack years"), false},
            {"medication", QT_TRANSLATE_NOOP("Ruvenka", "Medication"), false},
            {"symptoms", QT_TRANSLATE_NOOP("Ruvenka", "Symptoms"), false},
            {"referenceSet", QT_TRANSLATE_NOOP("Ruvenka", "Reference values"), true},
            {"quality", QT_TRANSLATE_NOOP("Ruvenka", "Quality grade"), true},
        },
        {AbstractApplication::Birthdate, AbstractApplication::Gender, AbstractApplication::EthnicGroup}};
};

AbstractApplication *RuvenkaPlugin::application(int edition)
{
    return edition == Edition ? &m_application : nullptr;
}

QString RuvenkaPlugin::applicationName() const
{
    return m_application.name();
}

#include "ruvenkaplugin.moc"
