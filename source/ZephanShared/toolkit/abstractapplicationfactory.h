#ifndef ABSTRACTAPPLICATIONFACTORY_H
#define ABSTRACTAPPLICATIONFACTORY_H

#include <QList>
#include <QMap>
#include <QString>
#include <QVariant>
#include <QtPlugin>

class QTranslator;

/// A study application of the suite, as its plug-in presents it to the other programs of a workstation.
///
/// The object belongs to its plug-in and stays valid for as long as that is loaded. Everything is called on
/// the GUI thread, and nothing may throw.
class AbstractApplication
{
public:
    /// The keys of a study field's descriptor.
    enum FieldKey : int {
        FieldId = 1,  ///< text: the id under which settings name the field; neither empty nor with "," or "="
        FieldText = 2,   ///< text: the field as people read it, in the language of the moment
        FieldFixed = 6,  ///< bool: true when the field's editor can't be hidden; absent counts as false
    };
    /// What describes one study field. Keys that aren't listed above are passed over.
    using FieldDescriptor = QMap<int, QVariant>;

    /// The standard fields of a person that an application can require.
    enum PersonField : int {
        FirstName = 1,
        MiddleName,
        LastName,
        PersonalId,
        Birthdate,
        PersonCode,
        Gender,
        EthnicGroup,
    };

    virtual ~AbstractApplication() = default;

    /// The translations of the application's texts.
    ///
    /// Called when the plug-in is loaded, once by each page that loads plug-ins; the caller installs the
    /// result. It stays the application's, which gives the same object for the same code.
    ///
    /// \param code  the translation code of the suite's language, as "fi" or "pt_BR"; may be empty
    /// \return      null when there are none for this language: the texts appear as they are written then
    virtual QTranslator *translator(const QString &code) = 0;

    /// Tells where the plug-in's own files are, before anything else is asked.
    ///
    /// \param path  absolute path of the folder that the plug-in lies in, with "/" and without one at the end
    virtual void setPluginPath(const QString &path) = 0;

    /// The application's name as people read it, in the language of the moment.
    virtual QString displayName() const = 0;

    /// The fields of the application's studies, in the order in which they are offered.
    virtual QList<FieldDescriptor> studyFields() const = 0;

    /// The standard person fields without which the application can't measure, as numbers of `PersonField`.
    virtual QList<int> requiredPersonFields() const = 0;
};

/// What the root object of a study plug-in implements.
///
/// The root object is a `QObject` with `Q_PLUGIN_METADATA(IID AbstractApplicationFactory_iid)` and
/// `Q_INTERFACES(AbstractApplicationFactory)`. The order of the virtual operations, here and above, is the
/// interface itself: a new one may only come after the last.
class AbstractApplicationFactory
{
public:
    /// The edition of `AbstractApplication` that this header describes.
    static constexpr int Edition = 1;

    virtual ~AbstractApplicationFactory() = default;

    /// The application object, the same one each time.
    ///
    /// \param edition  the edition of `AbstractApplication` that the caller knows
    /// \return         null when the plug-in has no object of that edition: it is passed over then
    virtual AbstractApplication *application(int edition) = 0;

    /// The name by which the suite and its settings know the application, as "Ruvenka": the same in all
    /// languages, neither empty nor with a "=". Of two plug-ins with the same name the later one counts.
    virtual QString applicationName() const = 0;
};

#define AbstractApplicationFactory_iid "AbstractApplicationFactory"
Q_DECLARE_INTERFACE(AbstractApplicationFactory, AbstractApplicationFactory_iid)

#endif
