#include "onlinestore.h"

#include "CommunicationAndData/settings/settingscontent.h"

#include <QSettings>
#include <QSignalSpy>
#include <QTest>

namespace {

constexpr int kLongestAnswer = 90000;  // milliseconds

SettingsHandler *store()
{
    return SettingsHandler::getInstance();
}

/// The arguments of the one answer.
QVariantList answerTo(QSignalSpy &answers)
{
    if (answers.isEmpty() && !answers.wait(kLongestAnswer))
        QTest::qFail("The store does not answer", __FILE__, __LINE__);
    return answers.value(0);
}

}  // namespace

namespace OnlineStore {

QMap<QString, QVariant> content()
{
    return SettingsContent::of(*store()->generalSettings());
}

void setContent(const QMap<QString, QVariant> &content)
{
    SettingsContent::replace(*store()->generalSettings(), content);
}

bool connectTo(const QMap<QString, QVariant> &connection)
{
    QSignalSpy answers(store(), &SettingsHandler::onlineReconnected);
    store()->callOnlineInit();
    emit store()->reconnectOnline(connection);
    return answerTo(answers).value(0).toBool();
}

OnlineSettings::QueryError send(const SettingsAdditionalData &data, bool informUser, bool distribute)
{
    QSignalSpy answers(store(), &SettingsHandler::settingsOnlineStoredReady);
    store()->storeSettingsOnline(data, 0, informUser, distribute);
    return answerTo(answers).value(0).value<OnlineSettings::QueryError>();
}

QMap<int, SettingsAdditionalData> list()
{
    if (!isListReadable())
        QTest::qFail("The list is not readable", __FILE__, __LINE__);
    return store()->getOnlineNotesList();
}

bool isListReadable()
{
    QSignalSpy answers(store(), &SettingsHandler::onlineNotesReady);
    emit store()->requestIDs(0, true);
    return answerTo(answers).value(0).toBool();
}

int activeId()
{
    QSignalSpy answers(store(), &SettingsHandler::activeOnlineId);
    emit store()->requestActiveId();
    return answerTo(answers).value(0).toInt();
}

OnlineSettings::QueryError remove(int id)
{
    QSignalSpy answers(store(), &SettingsHandler::settingsDeletedOnline);
    emit store()->requestDelete(id);
    const QVariantList answer = answerTo(answers);
    if (answer.value(0).toInt() != id)
        QTest::qFail("The answer is about another configuration", __FILE__, __LINE__);
    return answer.value(1).value<OnlineSettings::QueryError>();
}

bool load(int id)
{
    QSignalSpy answers(store(), &SettingsHandler::onlineSettingsReady);
    const bool loaded = store()->getOnlineSettings(id);
    if (answerTo(answers).value(0).toBool() != loaded)
        QTest::qFail("The signal says otherwise than the result", __FILE__, __LINE__);
    return loaded;
}

}  // namespace OnlineStore
