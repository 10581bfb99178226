#include "CommunicationAndData/access/accesscontrol.h"
#include "Corvane/accesscontrol/viewfixture.h"
#include "Corvane/views/loginview.h"
#include "Corvane/views/viewstacker.h"

#include <QToolButton>

namespace {

constexpr int kInternalUser = 1;  // of the box of authenticated users

const QString kUser = QString::fromUtf8("Yrjö Ångström");
const QString kPassword = QString::fromUtf8("sälä'sänä; \"ไทย\" 7");
const QString kNewRole = QStringLiteral("Auditors");

const QStringList kSettings{QStringLiteral("settings_button")};
const QStringList kSettingsAndAudit{QStringLiteral("settings_button"), QStringLiteral("audit_trail_button")};
const QStringList kAll{QStringLiteral("settings_button"), QStringLiteral("access_control_button"),
                       QStringLiteral("audit_trail_button")};
const QStringList kNobody{QStringLiteral("not signed in")};

}  // namespace

/// From the management view to the sign-in and back: what an administrator enters decides who comes in, and
/// what there is to be seen.
class TestAccessRoundTrip : public ViewFixture
{
    Q_OBJECT

private slots:
    void aUserOfTheViewSignsInAndSeesWhatItsRolesAllow_data();
    void aUserOfTheViewSignsInAndSeesWhatItsRolesAllow();
    void theNextSignInFollowsAChangedRole_data();
    void theNextSignInFollowsAChangedRole();
    void theNextSignInFollowsAChangedUser_data();
    void theNextSignInFollowsAChangedUser();

private:
    void addUserByDialog(const QStringList &roles);
    void addRoleByDialog(const QString &right);
    /// Signs in on the view that the program begins with, and gives the buttons that work on the home view.
    QStringList buttonsAfterSignIn(const QString &user, const QString &password);
};

void TestAccessRoundTrip::addUserByDialog(const QStringList &roles)
{
    EditorSteps steps({typeInto("last_name_edit", text("Ångström")), typeInto("username_edit", kUser),
                       typeInto("password_edit", kPassword), typeInto("confirm_edit", kPassword),
                       press("save_button")});
    click(addButton());
    QVERIFY(steps.areDone());
    for (const QString &role : roles)
        clickUserCheck(kUser, role);
    save();
    QVERIFY(!canSave());
}

void TestAccessRoundTrip::addRoleByDialog(const QString &right)
{
    chooseView(Roles);
    EditorSteps steps({typeInto("role_name_edit", kNewRole), press("save_button")});
    click(addButton());
    QVERIFY(steps.areDone());
    clickRightCheck(kNewRole, right);
    save();
    QVERIFY(!canSave());
    chooseView(Users);
}

QStringList TestAccessRoundTrip::buttonsAfterSignIn(const QString &user, const QString &password)
{
    ViewStacker views(m_workstation.dataDirectory(), m_handler.get(), nullptr);
    views.resize(1000, 700);
    views.show();
    auto *login = views.findChild<LoginView *>();
    QSignalSpy loggedIn(login, SIGNAL(loggedIn(AccessControl *)));
    QSignalSpy failures(login, SIGNAL(logError(Actions::Action, ZephanError, QVariant)));
    chooseEntry(login->findChild<QComboBox *>(text("authenticated_user_combo")), kInternalUser);
    login->findChild<QLineEdit *>(text("username_edit"))->insert(user);
    login->findChild<QLineEdit *>(text("password_edit"))->insert(password);
    QTest::mouseClick(login->findChild<QPushButton *>(text("sign_in_button")), Qt::LeftButton);
    if (!QTest::qWaitFor([&] { return !loggedIn.isEmpty() || !failures.isEmpty(); }) || loggedIn.isEmpty())
        return kNobody;
    QStringList buttons;
    for (const QString &name : kAll) {
        const auto *button = views.findChild<QToolButton *>(name);
        if (button && button->isVisible() && button->isEnabled())
            buttons.append(name);
    }
    return buttons;
}

void TestAccessRoundTrip::aUserOfTheViewSignsInAndSeesWhatItsRolesAllow_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QStringList>("roles");
    QTest::addColumn<QStringList>("buttons");
    addPlaceRows([](const QString &place, Place where) {
        const auto row = [&](const char *who, const QStringList &roles, const QStringList &buttons) {
            QTest::newRow(qPrintable(place + text(": ") + text(who))) << where << roles << buttons;
        };
        row("without a role", {}, kSettings);
        row("a doctor", {text("Doctor")}, kSettings);
        row("an administrator", {text("Admin")}, kAll);
        row("in a new role", {kNewRole}, kSettingsAndAudit);
        row("a nurse in a new role", {text("Nurse"), kNewRole}, kSettingsAndAudit);
    });
}

void TestAccessRoundTrip::aUserOfTheViewSignsInAndSeesWhatItsRolesAllow()
{
    QFETCH(QStringList, roles);
    QFETCH(QStringList, buttons);
    const MessageBoxes boxes;
    showView();
    addRoleByDialog(text("Audit trail management"));
    QCOMPARE(buttonsAfterSignIn(kUser, kPassword), kNobody);
    QVERIFY(m_handler->isConnected());
    addUserByDialog(roles);
    QCOMPARE(buttonsAfterSignIn(kUser, kPassword), buttons);
    QCOMPARE(buttonsAfterSignIn(kUser, kPassword + QLatin1Char(' ')), kNobody);
    QCOMPARE(buttonsAfterSignIn(kUser.toUpper(), kPassword), kNobody);
    QCOMPARE(boxTexts(boxes), QStringList());
}

void TestAccessRoundTrip::theNextSignInFollowsAChangedRole_data()
{
    addPlaces();
}

void TestAccessRoundTrip::theNextSignInFollowsAChangedRole()
{
    const MessageBoxes boxes;
    showView();
    addUserByDialog({text("Admin")});
    QCOMPARE(buttonsAfterSignIn(kUser, kPassword), kAll);
    chooseView(Roles);
    clickRightCheck(text("Admin"), text("Access control management"));
    QCOMPARE(buttonsAfterSignIn(kUser, kPassword), kAll);
    save();
    QCOMPARE(buttonsAfterSignIn(kUser, kPassword), kSettingsAndAudit);
    clickRightCheck(text("Admin"), text("Audit trail management"));
    save();
    QCOMPARE(buttonsAfterSignIn(kUser, kPassword), kSettings);
    clickRightCheck(text("Doctor"), text("Access control management"));
    clickRightCheck(text("Doctor"), text("Audit trail management"));
    save();
    chooseView(Users);
    clickUserCheck(kUser, text("Admin"));
    clickUserCheck(kUser, text("Doctor"));
    save();
    QCOMPARE(buttonsAfterSignIn(kUser, kPassword), kAll);
    QCOMPARE(boxTexts(boxes), QStringList());
}

void TestAccessRoundTrip::theNextSignInFollowsAChangedUser_data()
{
    addPlaces();
}

void TestAccessRoundTrip::theNextSignInFollowsAChangedUser()
{
    const MessageBoxes boxes({text("Ok")});
    showView();
    addUserByDialog({text("Admin")});
    const QString name = text("yrjo");
    EditorSteps change({typeInto("username_edit", name), typeInto("password_edit", text("secret")),
                        typeInto("confirm_edit", text("secret")), press("save_button")});
    clickUser(kUser);
    QVERIFY(change.areDone());
    QCOMPARE(buttonsAfterSignIn(kUser, kPassword), kNobody);
    QCOMPARE(buttonsAfterSignIn(name, kPassword), kNobody);
    QCOMPARE(buttonsAfterSignIn(name, text("secret")), kAll);
    EditorSteps removal({press("remove_button")});
    clickUser(name);
    QVERIFY(removal.areDone());
    QCOMPARE(buttonsAfterSignIn(name, text("secret")), kNobody);
    QCOMPARE(elsewhere(text("SELECT COUNT(*) FROM operator WHERE deleted = 0")), QStringList{text("0")});
}

QTEST_MAIN(TestAccessRoundTrip)
#include "test_accessroundtrip.moc"
