#include "Corvane/accesscontrol/viewfixture.h"

const QString kSaveQuestion = QStringLiteral("There are unsaved changes.\nSave now?");

namespace {

/// A widget that is shown in its table.
bool isShown(const CellTable *table, int row, int column)
{
    return table->cellWidget(row, column) && !table->isRowHidden(row) && !table->isColumnHidden(column);
}

QString iconMark(QMessageBox::Icon icon)
{
    if (icon == QMessageBox::Critical)
        return text("!");
    return icon == QMessageBox::Information ? text("i") : QString();
}

}  // namespace

QStringList boxTexts(const MessageBoxes &boxes)
{
    QStringList list;
    for (const SeenBox &box : boxes.seen()) {
        QStringList buttons = box.buttons;
        buttons.sort();
        list.append(iconMark(box.icon) +
                    QStringList{box.title, box.text, buttons.join(QLatin1Char(','))}.join(QLatin1Char('|')));
    }
    return list;
}

void ViewFixture::init()
{
    StoreFixture::init();
    m_stack = std::make_unique<QStackedWidget>();
}

void ViewFixture::cleanup()
{
    const MessageBoxes boxes({text("No")});
    m_view = nullptr;
    m_stack.reset();
    allowAll();
    StoreFixture::cleanup();
}

void ViewFixture::addOfflineFile()
{
    QTest::addColumn<Place>("place");
    QTest::newRow("the encrypted file") << Place::OfflineFile;
}

void ViewFixture::addOnlinePlaces()
{
    QTest::addColumn<Place>("place");
    addPlaceRows([](const QString &place, Place where) {
        if (where != Place::OfflineFile)
            QTest::newRow(qPrintable(place)) << where;
    });
}

void ViewFixture::addSqlite()
{
    QTest::addColumn<Place>("place");
    QTest::newRow("SQLite behind ODBC") << Place::Sqlite;
}

bool ViewFixture::addUsers()
{
    return addUser(idOf(1), text("anna"), OperatorModelData::InternalUser, {roleId(text("Admin"))}) &&
           addUser(idOf(2), text("bert"), OperatorModelData::InternalUser, {roleId(text("Nurse"))}) &&
           addUser(idOf(3), text("CLINIC\\NURSES"), OperatorModelData::WindowsGroup,
                   {roleId(text("Nurse"))}) &&
           addUser(idOf(4), text("CLINIC\\CARLA"), OperatorModelData::WindowsUser, {roleId(text("Doctor"))});
}

bool ViewFixture::addPlacesOfWork()
{
    return addOrganization(1, text("East Clinic")) && addOrganization(2, text("West Clinic")) &&
           addDepartment(1, text("Surgery"), text("Building 1")) &&
           addDepartment(2, text("Oncology"), text("Building 2"));
}

bool ViewFixture::addUser(const UuidString &id, const QString &name, uint type, const QList<uint> &roles)
{
    QStringList failures = elsewhere(text("INSERT INTO operator (operator_id, username, last_name, "
                                          "first_name, middle_name, password, salt, user_id, deleted, "
                                          "operator_type) VALUES (?, ?, 'Last', 'First', '', 'hash', 'salt', "
                                          "'', 0, ?)"),
                                     {id.toString(), name, type});
    for (const uint role : roles)
        failures += elsewhere(text("INSERT INTO operator_roles (operator_id, role_id) VALUES (?, ?)"),
                              {id.toString(), role});
    return failures.isEmpty();
}

bool ViewFixture::addOrganization(int number, const QString &name)
{
    return elsewhere(text("INSERT INTO organization (id, deleted, name) VALUES (?, 0, ?)"),
                     {idOf(number).toString(), name})
        .isEmpty();
}

bool ViewFixture::addDepartment(int number, const QString &name, const QString &address)
{
    return elsewhere(text("INSERT INTO department (id, deleted, name, address) VALUES (?, 0, ?, ?)"),
                     {idOf(number).toString(), name, address})
        .isEmpty();
}

void ViewFixture::showView()
{
    m_view = new AccesscontrolView(m_handler.get(), m_stack.get());
    m_stack->addWidget(m_view);
    m_stack->addWidget(new QWidget);
    m_stack->resize(1000, 700);
    QVERIFY(m_view->ensureConnection());
    m_stack->show();
    m_stack->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_stack.get()));
}

void ViewFixture::leaveView()
{
    m_stack->setCurrentIndex(1);
}

void ViewFixture::comeBack()
{
    QVERIFY(m_view->ensureConnection());
    m_stack->setCurrentIndex(0);
}

bool ViewFixture::refuse(const QString &statement, const QString &table, const QString &condition)
{
    const QString trigger = QStringLiteral("refusal_%1").arg(m_triggers.size());
    m_triggers.append(trigger);
    QString when = QStringLiteral("WHEN %1 BEGIN SELECT RAISE(ABORT, 'refused'); END").arg(condition);
    if (m_place == Place::MariaDb) {
        when = QStringLiteral("FOR EACH ROW BEGIN IF %1 THEN SIGNAL SQLSTATE '45000'; END IF; END")
                   .arg(condition);
    } else if (m_place == Place::PostgreSql) {
        when = QStringLiteral("FOR EACH ROW EXECUTE FUNCTION %1()").arg(trigger);
        if (!elsewhere(QStringLiteral("CREATE FUNCTION %1() RETURNS trigger LANGUAGE plpgsql AS 'BEGIN IF %2 "
                                      "THEN RAISE EXCEPTION ''refused''; END IF; RETURN NEW; END'")
                           .arg(trigger, QString(condition).replace(QLatin1Char('\''), text("''"))))
                 .isEmpty())
            return false;
    }
    return elsewhere(
               QStringLiteral("CREATE TRIGGER %1 BEFORE %2 ON %3 %4").arg(trigger, statement, table, when))
        .isEmpty();
}

void ViewFixture::allowAll()
{
    const QString drop =
        text(m_place == Place::PostgreSql ? "DROP FUNCTION %1() CASCADE" : "DROP TRIGGER %1");
    for (const QString &trigger : qAsConst(m_triggers))
        elsewhere(drop.arg(trigger));
    m_triggers.clear();
}

QString ViewFixture::storedValue(const QString &user, const char *column)
{
    return elsewhere(QStringLiteral("SELECT %1 FROM operator WHERE username = ?").arg(text(column)), {user})
        .value(0);
}

void ViewFixture::chooseView(ViewIndex view)
{
    chooseEntry(part<QComboBox>("view_combo"), view);
}

void ViewFixture::chooseMethod(MethodIndex method)
{
    chooseEntry(part<QComboBox>("method_combo"), method);
}

void ViewFixture::click(QWidget *widget)
{
    QVERIFY(widget);
    QVERIFY(widget->isVisible());
    // After a dialog or a list nobody gives the window the focus here.
    if (QApplication::activeWindow() != widget->window())
        QApplication::setActiveWindow(widget->window());
    QTest::mouseClick(widget, Qt::LeftButton);
}

void ViewFixture::clickCell(CellTable *table, int row, int column)
{
    QVERIFY(isShown(table, row, column));
    table->scrollTo(table->model()->index(row, column));
    click(table->cellWidget(row, column));
}

int ViewFixture::userRow(const QString &name) const
{
    const CellTable *users = table("user_table");
    for (int row = 1; row < users->rowCount(); ++row) {
        const auto *button = qobject_cast<AccessUser *>(users->cellWidget(row, 0));
        if (button && button->text() == name)
            return row;
    }
    return -1;
}

int ViewFixture::roleColumn(const QString &name) const
{
    const CellTable *roles = table("role_table");
    for (int column = 1; column < roles->columnCount(); ++column) {
        const auto *button = qobject_cast<AccessRole *>(roles->cellWidget(0, column));
        if (button && button->text() == name)
            return column;
    }
    return -1;
}

AccessUser *ViewFixture::user(const QString &name) const
{
    return qobject_cast<AccessUser *>(table("user_table")->cellWidget(userRow(name), 0));
}

AccessRole *ViewFixture::role(const QString &name) const
{
    return qobject_cast<AccessRole *>(table("role_table")->cellWidget(0, roleColumn(name)));
}

QPushButton *ViewFixture::userCheck(const QString &user, const QString &role) const
{
    return qobject_cast<QPushButton *>(table("user_table")->cellWidget(userRow(user), roleColumn(role)));
}

QPushButton *ViewFixture::rightCheck(const QString &role, const QString &right) const
{
    const CellTable *roles = table("role_table");
    for (int row = 1; row < roles->rowCount(); ++row) {
        if (roles->item(row, 0) && roles->item(row, 0)->text() == right)
            return qobject_cast<QPushButton *>(roles->cellWidget(row, roleColumn(role)));
    }
    return nullptr;
}

void ViewFixture::clickUserCheck(const QString &user, const QString &role)
{
    clickCell(table("user_table"), userRow(user), roleColumn(role));
}

void ViewFixture::clickRightCheck(const QString &role, const QString &right)
{
    QPushButton *check = rightCheck(role, right);
    QVERIFY(check);
    CellTable *roles = table("role_table");
    for (int row = 1; row < roles->rowCount(); ++row) {
        if (roles->cellWidget(row, roleColumn(role)) == check)
            clickCell(roles, row, roleColumn(role));
    }
}

void ViewFixture::clickUser(const QString &name)
{
    clickCell(table("user_table"), userRow(name), 0);
}

void ViewFixture::clickRole(const QString &name)
{
    clickCell(table("role_table"), 0, roleColumn(name));
}

QStringList ViewFixture::shownUsers() const
{
    QStringList names;
    const CellTable *users = table("user_table");
    for (int row = 1; row < users->rowCount(); ++row) {
        if (isShown(users, row, 0))
            names.append(qobject_cast<AccessUser *>(users->cellWidget(row, 0))->text());
    }
    names.sort();
    return names;
}

QStringList ViewFixture::shownRoles() const
{
    QStringList names;
    const CellTable *roles = table("role_table");
    for (int column = 1; column < roles->columnCount(); ++column) {
        if (isShown(roles, 0, column))
            names.append(qobject_cast<AccessRole *>(roles->cellWidget(0, column))->text());
    }
    return names;
}

QStringList ViewFixture::roleHeadings() const
{
    QStringList names;
    const CellTable *users = table("user_table");
    for (int column = 1; column < users->columnCount(); ++column) {
        if (!users->isColumnHidden(column))
            names.append(users->item(0, column)->text());
    }
    return names;
}

QStringList ViewFixture::checkedRoles(const QString &user) const
{
    QStringList names;
    for (const QString &name : shownRoles()) {
        const QPushButton *check = userCheck(user, name);
        if (check && check->isChecked())
            names.append(name);
    }
    return names;
}

QStringList ViewFixture::storedRoles(const QString &user)
{
    return elsewhere(text("SELECT title FROM roles INNER JOIN operator_roles ON operator_roles.role_id = "
                          "roles.role_id INNER JOIN operator ON operator.operator_id = "
                          "operator_roles.operator_id WHERE username = ? ORDER BY roles.role_id"),
                     {user});
}

ColumnLineEdit *ViewFixture::edit(int row, int column) const
{
    return qobject_cast<ColumnLineEdit *>(table("info_table")->cellWidget(row, column));
}

QPushButton *ViewFixture::deleteButton(int row) const
{
    return qobject_cast<QPushButton *>(table("info_table")->cellWidget(row, 3));
}

void ViewFixture::type(int row, int column, const QString &content)
{
    clickCell(table("info_table"), row, column);
    ColumnLineEdit *field = edit(row, column);
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, content);
    QTest::keyClick(field, Qt::Key_Tab);
}

void ViewFixture::clickDelete(int row)
{
    clickCell(table("info_table"), row, 3);
}

QStringList ViewFixture::shownRows() const
{
    QStringList rows;
    const CellTable *info = table("info_table");
    for (int row = 1; row < info->rowCount(); ++row) {
        QStringList columns;
        for (int column = 0; column < 3; ++column) {
            if (isShown(info, row, column))
                columns.append(edit(row, column)->text());
        }
        if (!columns.isEmpty())
            rows.append(columns.join(QLatin1Char('|')));
    }
    return rows;
}

QStringList ViewFixture::storedNames(const char *table)
{
    return elsewhere(QStringLiteral("SELECT name FROM %1 WHERE deleted = 0 ORDER BY id").arg(text(table)));
}
