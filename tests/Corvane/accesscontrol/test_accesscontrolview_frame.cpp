#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/accesscontrol/viewfixture.h"

#include <QMetaMethod>
#include <QTranslator>

namespace {

/// A language in capitals.
class Capitals : public QTranslator
{
public:
    QString translate(const char *, const char *source, const char *, int) const override
    {
        return QString::fromUtf8(source).toUpper();
    }
    bool isEmpty() const override
    {
        return false;
    }
};

/// A language of long words.
class LongWords : public QTranslator
{
public:
    QString translate(const char *, const char *source, const char *, int) const override
    {
        return QString::fromUtf8(source).repeated(4);
    }
    bool isEmpty() const override
    {
        return false;
    }
};

}  // namespace

/// What stands around the tables of the management view, and when they are filled.
class TestAccesscontrolViewFrame : public ViewFixture
{
    Q_OBJECT

private slots:
    void theSettingSelectsTheMethod_data();
    void theSettingSelectsTheMethod();
    void theSlotsAreThoseThatOthersCall();
    void theListsHaveTheirEntries_data();
    void theListsHaveTheirEntries();
    void theTablesAreEmptyUntilTheFirstConnection_data();
    void theTablesAreEmptyUntilTheFirstConnection();
    void aConnectionThatWasThereBeforeFillsTheTables_data();
    void aConnectionThatWasThereBeforeFillsTheTables();
    void comingBackAsksTheDatabaseNothing_data();
    void comingBackAsksTheDatabaseNothing();
    void allTextsFollowTheLanguage_data();
    void allTextsFollowTheLanguage();
    void theFirstRowHasRoomForALongDelete_data();
    void theFirstRowHasRoomForALongDelete();
    void aRefreshThatFailsHalfWayShowsWhatCame_data();
    void aRefreshThatFailsHalfWayShowsWhatCame();
    void theListOfDomainsReachesTheChoiceOfAccounts_data();
    void theListOfDomainsReachesTheChoiceOfAccounts();
    void slotsWithoutASenderDoNothing_data();
    void slotsWithoutASenderDoNothing();
    void withoutAHandlerNothingIsStored();
    void theWholeViewIsReachedByTheKeyboard_data();
    void theWholeViewIsReachedByTheKeyboard();
};

void TestAccesscontrolViewFrame::theSettingSelectsTheMethod_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QVariant>("setting");
    QTest::addColumn<int>("index");
    const auto add = [](const char *name, const QVariant &setting, int index) {
        QTest::newRow(name) << Place::OfflineFile << setting << index;
    };
    add("none behaves as Internal users", text("none"), 0);
    add("Internal users", text("Internal users"), 0);
    add("Windows group based", text("Windows group based"), 1);
    add("Windows user based", text("Windows user based"), 2);
    add("anything else leaves the first", text("something"), 0);
    add("no setting leaves the first", QVariant(), 0);
}

void TestAccesscontrolViewFrame::theSettingSelectsTheMethod()
{
    QFETCH(const QVariant, setting);
    QFETCH(const int, index);
    if (setting.isValid())
        store()->setSafeValue(QLatin1String(SettingsKeys::kAccessMethod), setting);
    QVERIFY(addUsers());
    showView();
    QCOMPARE(part<QComboBox>("method_combo")->currentIndex(), index);
    const QStringList buttons{text("Add new internal user"), text("Add new Windows group"),
                              text("Add new Windows user")};
    QCOMPARE(addButton()->text(), buttons.at(index));
    const QStringList firstUsers{text("anna"), text("CLINIC\\NURSES"), text("CLINIC\\CARLA")};
    QCOMPARE(shownUsers().value(0), firstUsers.at(index));
    // The list is a filter and leaves the setting alone.
    chooseMethod(index == WindowsUsers ? InternalUsers : WindowsUsers);
    QCOMPARE(store()->safeValue(QLatin1String(SettingsKeys::kAccessMethod)), setting);
    // A cancelled change goes back to it.
    clickCell(table("user_table"), userRow(shownUsers().value(0)), 1);
    const int now = part<QComboBox>("method_combo")->currentIndex();
    const MessageBoxes boxes({text("Cancel")});
    chooseMethod(WindowsGroups);
    QCOMPARE(part<QComboBox>("method_combo")->currentIndex(), now);
}

void TestAccesscontrolViewFrame::theSlotsAreThoseThatOthersCall()
{
    const QByteArrayList expected{"newSystemUser()",
                                  "newManagedUser()",
                                  "newSystemGroup()",
                                  "editManagedUser()",
                                  "userRoleChanged()",
                                  "updateTexts()",
                                  "updateButtonStates()",
                                  "changeView(int)",
                                  "newRole()",
                                  "editRole()",
                                  "checkIncrementalAccessTypes()",
                                  "newDepartment()",
                                  "newOrganization()",
                                  "deleteInfo()",
                                  "save()",
                                  "accessMethodChanged(int)",
                                  "domainListUpdated(QStringList)",
                                  "resetTables()"};
    QByteArrayList found;
    const QMetaObject &meta = AccesscontrolView::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).access() == QMetaMethod::Public)
            found.append(meta.method(i).methodSignature());
    }
    QCOMPARE(found, expected);
}

void TestAccesscontrolViewFrame::theListsHaveTheirEntries_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewFrame::theListsHaveTheirEntries()
{
    showView();
    const auto entries = [](const QComboBox *combo) {
        QStringList list;
        for (int i = 0; i < combo->count(); ++i)
            list.append(combo->itemText(i) + QLatin1Char('=') + combo->itemData(i).toString());
        return list;
    };
    const auto *views = part<QComboBox>("view_combo");
    const auto *methods = part<QComboBox>("method_combo");
    QCOMPARE(entries(views),
             (QStringList{text("Users=0"), text("Roles=1"), text("Organisations=2"), text("Departments=3")}));
    QCOMPARE(entries(methods), (QStringList{text("Internal users=1"), text("Windows group based=2"),
                                            text("Windows user based=3")}));
    QCOMPARE(views->height(), 25);
    QCOMPARE(methods->height(), 25);
    QCOMPARE(saveButton()->text(), text("Save"));
    QVERIFY(views->y() >= 30);
    QVERIFY(views->x() < addButton()->x() && addButton()->x() < methods->x());
    QVERIFY(table("user_table")->isVisible());
    QVERIFY(!table("role_table")->isVisible() && !table("info_table")->isVisible());
    const CellTable *users = table("user_table");
    QCOMPARE(users->item(0, 0)->text(), text("-"));
    QCOMPARE(users->item(0, 0)->flags(), Qt::NoItemFlags);
    QVERIFY(!users->horizontalHeader()->isVisible() && !users->verticalHeader()->isVisible());
}

void TestAccesscontrolViewFrame::theTablesAreEmptyUntilTheFirstConnection_data()
{
    addSqlite();
}

void TestAccesscontrolViewFrame::theTablesAreEmptyUntilTheFirstConnection()
{
    QVERIFY(addUsers());
    m_handler->closeConnection();
    m_view = new AccesscontrolView(m_handler.get(), m_stack.get());
    m_stack->addWidget(m_view);
    {
        DialogSteps giveUp({pressCancel});
        QVERIFY(!m_view->ensureConnection());
    }
    for (const char *name : {"user_table", "role_table", "info_table"})
        QCOMPARE(table(name)->rowCount(), 0);
    QVERIFY(!canSave());
    DialogSteps connectAgain({pressConnect});
    QVERIFY(m_view->ensureConnection());
    m_stack->show();
    QCOMPARE(shownUsers(), (QStringList{text("anna"), text("bert")}));
}

void TestAccesscontrolViewFrame::aConnectionThatWasThereBeforeFillsTheTables_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewFrame::aConnectionThatWasThereBeforeFillsTheTables()
{
    QVERIFY(addUsers());
    trail();
    showView();
    QCOMPARE(shownUsers(), (QStringList{text("anna"), text("bert")}));
    QCOMPARE(trail().filter(text("GetOperator")).size(), 1);
}

void TestAccesscontrolViewFrame::comingBackAsksTheDatabaseNothing_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewFrame::comingBackAsksTheDatabaseNothing()
{
    QVERIFY(addUsers());
    showView();
    trail();
    leaveView();
    comeBack();
    QCOMPARE(trail(), QStringList());
    QCOMPARE(shownUsers(), (QStringList{text("anna"), text("bert")}));
}

void TestAccesscontrolViewFrame::allTextsFollowTheLanguage_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewFrame::allTextsFollowTheLanguage()
{
    QVERIFY(addUsers());
    QVERIFY(addPlacesOfWork());
    showView();
    chooseView(Departments);
    click(addButton());
    Capitals capitals;
    QApplication::installTranslator(&capitals);
    QTRY_COMPARE(saveButton()->text(), text("SAVE"));
    QCOMPARE(addButton()->text(), text("ADD NEW DEPARTMENT"));
    QCOMPARE(part<QComboBox>("view_combo")->itemText(1), text("ROLES"));
    QCOMPARE(part<QComboBox>("method_combo")->itemText(1), text("WINDOWS GROUP BASED"));
    QCOMPARE(table("info_table")->item(0, 2)->text(), text("ADDRESS"));
    QCOMPARE(deleteButton(1)->text(), text("DELETE"));
    QCOMPARE(edit(3, 1)->placeholderText(), text("ENTER NAME"));
    QCOMPARE(edit(3, 2)->placeholderText(), text("ENTER ADDRESS"));
    chooseView(Roles);
    QCOMPARE(table("role_table")->item(1, 0)->text(), text("SETTINGS"));
    QApplication::removeTranslator(&capitals);
    QTRY_COMPARE(table("role_table")->item(1, 0)->text(), text("Settings"));
    QCOMPARE(rightCheck(text("Admin"), text("Export"))->accessibleName(), text("Admin: Export"));
}

void TestAccesscontrolViewFrame::theFirstRowHasRoomForALongDelete_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewFrame::theFirstRowHasRoomForALongDelete()
{
    showView();
    chooseView(Organisations);
    const CellTable *info = table("info_table");
    const int usual = info->columnWidth(3);
    LongWords longWords;
    QApplication::installTranslator(&longWords);
    QTRY_COMPARE(saveButton()->text(), text("SaveSaveSaveSave"));
    QCOMPARE(info->columnWidth(3), usual);
    click(addButton());
    QVERIFY(deleteButton(1)->sizeHint().width() > usual);
    QCOMPARE(info->columnWidth(3), deleteButton(1)->sizeHint().width());
    QApplication::removeTranslator(&longWords);
    QTRY_COMPARE(info->columnWidth(3), usual);
}

void TestAccesscontrolViewFrame::aRefreshThatFailsHalfWayShowsWhatCame_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("table");
    QTest::addColumn<QStringList>("roles");
    QTest::addColumn<QStringList>("users");
    QTest::addColumn<QStringList>("organisations");
    const QStringList roles{text("Nurse"), text("Doctor"), text("Admin")};
    const QStringList users{text("anna"), text("bert")};
    const auto add = [](const char *name, const char *table, const QStringList &r, const QStringList &u) {
        QTest::newRow(name) << Place::OfflineFile << text(table) << r << u << QStringList();
    };
    add("at the roles", "roles", {}, {});
    add("at the operators", "operator", roles, {});
    add("at the departments", "department", roles, users);
}

void TestAccesscontrolViewFrame::aRefreshThatFailsHalfWayShowsWhatCame()
{
    QFETCH(const QString, table);
    QVERIFY(addUsers());
    QVERIFY(addPlacesOfWork());
    QVERIFY(hideTable(table));
    m_view = new AccesscontrolView(m_handler.get(), m_stack.get());
    m_stack->addWidget(m_view);
    m_view->resetTables();
    m_stack->show();
    QTEST(shownRoles(), "roles");
    QTEST(shownUsers(), "users");
    QVERIFY(!m_handler->isConnected());
    QVERIFY(!canSave());
    chooseView(Organisations);
    QTEST(shownRows(), "organisations");
    click(addButton());
    QCOMPARE(shownRows().size(), 1);
}

void TestAccesscontrolViewFrame::theListOfDomainsReachesTheChoiceOfAccounts_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewFrame::theListOfDomainsReachesTheChoiceOfAccounts()
{
    showView();
    QTest::qWait(50);  // the worker's own answer
    QVERIFY(QMetaObject::invokeMethod(m_view, "domainListUpdated",
                                      Q_ARG(QStringList, QStringList{text("\\\\CONTROLLER")})));
    for (const MethodIndex method : {WindowsUsers, WindowsGroups}) {
        chooseMethod(method);
        int entries = 0;
        EditorSteps steps(
            {[&](QDialog &dialog) { entries = shown<QComboBox>(dialog, "domain_combo")->count(); },
             pressKey(Qt::Key_Escape)});
        click(addButton());
        QVERIFY(steps.areDone());
        QCOMPARE(entries, 3);
    }
}

void TestAccesscontrolViewFrame::slotsWithoutASenderDoNothing_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewFrame::slotsWithoutASenderDoNothing()
{
    QVERIFY(addUsers());
    QVERIFY(addPlacesOfWork());
    showView();
    trail();
    const MessageBoxes boxes;
    for (const ViewIndex view : {Users, Roles, Organisations, Departments}) {
        chooseView(view);
        for (const char *slot : {"editManagedUser", "editRole", "checkIncrementalAccessTypes", "deleteInfo",
                                 "userRoleChanged", "save"})
            QVERIFY(QMetaObject::invokeMethod(m_view, slot));
    }
    QCOMPARE(boxTexts(boxes), QStringList());
    QCOMPARE(trail(), QStringList());
}

void TestAccesscontrolViewFrame::withoutAHandlerNothingIsStored()
{
    AccesscontrolView view(nullptr, nullptr);
    view.show();
    const MessageBoxes boxes;
    for (const char *slot : {"resetTables", "save", "updateTexts", "updateButtonStates"})
        QVERIFY(QMetaObject::invokeMethod(&view, slot));
    EditorSteps steps({typeInto("username_edit", text("zoe")), typeInto("password_edit", text("secret")),
                       typeInto("confirm_edit", text("secret")), press("save_button"),
                       typeInto("role_name_edit", text("Midwife")), press("save_button")});
    view.newManagedUser();
    view.newRole();
    QVERIFY(steps.areDone());
    const QString saveFailed = text("!Save failed|Could not save.|Ok");
    QCOMPARE(boxTexts(boxes), (QStringList{saveFailed, saveFailed}));
    view.hide();
    QCOMPARE(boxes.seen().size(), 2);
}

void TestAccesscontrolViewFrame::theWholeViewIsReachedByTheKeyboard_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewFrame::theWholeViewIsReachedByTheKeyboard()
{
    QVERIFY(addUsers());
    showView();
    QApplication::setActiveWindow(m_stack.get());
    const auto press = [this](Qt::Key key) {
        QTest::keyClick(m_stack->focusWidget(), key);
    };
    part<QComboBox>("view_combo")->setFocus();
    press(Qt::Key_Tab);
    QCOMPARE(m_stack->focusWidget(), addButton());
    press(Qt::Key_Tab);
    QCOMPARE(m_stack->focusWidget(), part<QComboBox>("method_combo"));
    press(Qt::Key_Tab);
    QCOMPARE(m_stack->focusWidget(), user(text("anna")));
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    QCOMPARE(m_stack->focusWidget(), userCheck(text("bert"), text("Doctor")));
    press(Qt::Key_Return);
    QVERIFY(canSave());
    press(Qt::Key_Tab);
    QCOMPARE(m_stack->focusWidget(), saveButton());
    press(Qt::Key_Return);
    QCOMPARE(storedRoles(text("bert")), (QStringList{text("Nurse"), text("Doctor")}));
    QVERIFY(!canSave());

    // A user is edited, and the editor left, without the mouse.
    table("user_table")->setFocus();
    press(Qt::Key_Home);
    EditorSteps steps({pressKey(Qt::Key_Escape)});
    press(Qt::Key_Return);
    QVERIFY(steps.areDone());
    QCOMPARE(userCheck(text("bert"), text("Doctor"))->accessibleName(), text("bert: Doctor"));
}

QTEST_MAIN(TestAccesscontrolViewFrame)
#include "test_accesscontrolview_frame.moc"
