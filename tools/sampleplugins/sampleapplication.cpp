#include "sampleapplication.h"

#include <QCoreApplication>

SampleApplication::SampleApplication(const char *name, const char *displayName, QVector<Field> fields,
                                     QList<int> requiredPersonFields)
    : m_name(name)
    , m_displayName(displayName)
    , m_fields(std::move(fields))
    , m_requiredPersonFields(std::move(requiredPersonFields))
{}

QString SampleApplication::name() const
{
    return QLatin1String(m_name);
}

QTranslator *SampleApplication::translator(const QString &code)
{
    const auto known = m_translators.find(code);
    if (known != m_translators.end())
        return known->second.get();
    auto translator = std::make_unique<QTranslator>();
    if (code.isEmpty() ||
        !translator->load(QStringLiteral("%1/translations/%2_%3.qm").arg(m_pluginPath, name(), code)))
        return nullptr;
    return m_translators.emplace(code, std::move(translator)).first->second.get();
}

void SampleApplication::setPluginPath(const QString &path)
{
    m_pluginPath = path;
}

QString SampleApplication::displayName() const
{
    return translated(m_displayName);
}

QList<AbstractApplication::FieldDescriptor> SampleApplication::studyFields() const
{
    QList<FieldDescriptor> descriptors;
    for (const Field &field : m_fields)
        descriptors.append({{FieldId, QLatin1String(field.id)},
                            {FieldText, translated(field.text)},
                            {FieldFixed, field.isFixed}});
    return descriptors;
}

QList<int> SampleApplication::requiredPersonFields() const
{
    return m_requiredPersonFields;
}

QString SampleApplication::translated(const char *text) const
{
    return QCoreApplication::translate(m_name, text);
}
