#include "ZephanShared/toolkit/abstractapplicationfactory.h"

#include <QCoreApplication>
#include <QObject>
#include <QTranslator>

// What one plug-in is to be is in its definitions:
//   TRIAL_NAME      the application's name
//   TRIAL_TITLE     its display name
//   TRIAL_FIELDS    its fields, as "<id>:<text>:fixed/..."; a field of one piece has no keys at all
//   TRIAL_COUNT     so many fields more, "field0" and on
//   TRIAL_FORGETS   the fields are there once
//   TRIAL_EMPTY     there is no application object
#ifndef TRIAL_COUNT
#define TRIAL_COUNT 0
#endif
#ifndef TRIAL_FORGETS
#define TRIAL_FORGETS false
#endif
#ifndef TRIAL_EMPTY
#define TRIAL_EMPTY false
#endif

namespace {

/// Puts the language's code before each text of the plug-ins.
class TrialTranslator : public QTranslator
{
public:
    explicit TrialTranslator(QString code)
        : m_code(std::move(code))
    {}

    bool isEmpty() const override
    {
        return false;
    }

    QString translate(const char *context, const char *text, const char *, int) const override
    {
        return qstrcmp(context, TRIAL_NAME) == 0 ? m_code + QLatin1Char(' ') + QString::fromUtf8(text)
                                                 : QString();
    }

private:
    QString m_code;
};

QString translated(const QString &text)
{
    return text.isEmpty() ? text : QCoreApplication::translate(TRIAL_NAME, text.toUtf8().constData());
}

AbstractApplication::FieldDescriptor descriptor(const QString &id, const QString &text, bool isFixed)
{
    return {{AbstractApplication::FieldId, id},
            {AbstractApplication::FieldText, translated(text)},
            {AbstractApplication::FieldFixed, isFixed}};
}

}  // namespace

/// Keeps what it was told and asked as its properties `pluginPath` and `calls`.
class TrialApplication : public QObject, public AbstractApplication
{
    Q_OBJECT

public:
    QTranslator *translator(const QString &code) override
    {
        addCall(QStringLiteral("translator ") + code);
        if (code.isEmpty())
            return nullptr;
        m_translator.reset(new TrialTranslator(code));
        return m_translator.get();
    }

    void setPluginPath(const QString &path) override
    {
        addCall(QStringLiteral("setPluginPath"));
        setProperty("pluginPath", path);
    }

    QString displayName() const override
    {
        return translated(QStringLiteral(TRIAL_TITLE));
    }

    QList<FieldDescriptor> studyFields() const override
    {
        if (TRIAL_FORGETS && m_isAsked)
            return {};
        m_isAsked = true;
        QList<FieldDescriptor> fields;
        const QStringList parts = QStringLiteral(TRIAL_FIELDS).split(QLatin1Char('/'), Qt::SkipEmptyParts);
        for (const QString &part : parts) {
            const QStringList pieces = part.split(QLatin1Char(':'));
            fields.append(pieces.size() == 1 ? FieldDescriptor()
                                             : descriptor(pieces.at(0), pieces.at(1),
                                                          pieces.value(2) == QLatin1String("fixed")));
        }
        for (int i = 0; i < TRIAL_COUNT; ++i)
            fields.append(
                descriptor(QStringLiteral("field%1").arg(i), QStringLiteral("Field %1").arg(i), false));
        return fields;
    }

    QList<int> requiredPersonFields() const override
    {
        return {FirstName, LastName, EthnicGroup};
    }

    void addCall(const QString &call)
    {
        setProperty("calls", property("calls").toStringList() << call);
    }

private:
    QScopedPointer<QTranslator> m_translator;
    mutable bool m_isAsked = false;
};

class TrialPlugin : public QObject, public AbstractApplicationFactory
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID AbstractApplicationFactory_iid)
    Q_INTERFACES(AbstractApplicationFactory)

public:
    AbstractApplication *application(int edition) override
    {
        m_application.addCall(QStringLiteral("application %1").arg(edition));
        return TRIAL_EMPTY ? nullptr : &m_application;
    }

    QString applicationName() const override
    {
        return QStringLiteral(TRIAL_NAME);
    }

private:
    TrialApplication m_application;
};

#include "trialplugin.moc"
