#include "Corvane/accesscontrol/storefixture.h"

#include <functional>

namespace {

/// Organisations and departments are alike: each test runs on both.
struct Unit
{
    const char *table;
    const char *word;
    std::function<bool(SupportConnectionHandler &, const UuidString &, const QString &)> save;
    std::function<bool(SupportConnectionHandler &, const UuidString &)> remove;
    std::function<bool(SupportConnectionHandler &, const UuidString &)> exists;
};

const Unit &unitOf(bool department)
{
    using Handler = SupportConnectionHandler;
    static const Unit organizations{
        "organization", "Organization",
        [](Handler &handler, const UuidString &id, const QString &name) {
            return handler.saveOrganization(id, name);
        },
        [](Handler &handler, const UuidString &id) { return handler.deleteOrganization(id); },
        [](Handler &handler, const UuidString &id) {
            return handler.organizationExists(id);
        }};
    static const Unit departments{
        "department", "Department",
        [](Handler &handler, const UuidString &id, const QString &name) {
            return handler.saveDepartment(id, name, text("Kuja 1"));
        },
        [](Handler &handler, const UuidString &id) { return handler.deleteDepartment(id); },
        [](Handler &handler, const UuidString &id) {
            return handler.departmentExists(id);
        }};
    return department ? departments : organizations;
}

}  // namespace

/// Organisations and departments in the access tables, wherever these are.
class TestOrganizationStore : public StoreFixture
{
    Q_OBJECT

private slots:
    void aNewOneIsAdded_data();
    void aNewOneIsAdded();
    void aKnownOneIsRenamed_data();
    void aKnownOneIsRenamed();
    void fiftyOneCharactersAreStoredAsFifty_data();
    void fiftyOneCharactersAreStoredAsFifty();
    void anAddressIsCutAsWell_data();
    void anAddressIsCutAsWell();
    void anEmptyNameGoesThrough_data();
    void anEmptyNameGoesThrough();
    void noIdAndNoNameAreRefused_data();
    void noIdAndNoNameAreRefused();
    void deletingReplacesTheNameAndLogsNothing_data();
    void deletingReplacesTheNameAndLogsNothing();
    void deletingWhatIsNotThereLogsNothing_data();
    void deletingWhatIsNotThereLogsNothing();
    void aDeletedRowOfTheSameIdIsMadeLiveAgain_data();
    void aDeletedRowOfTheSameIdIsMadeLiveAgain();
    void aNameThatIsTakenIsRefusedByTheTable_data();
    void aNameThatIsTakenIsRefusedByTheTable();
    void whatSomeoneElseDeletedComesBackWithASave_data();
    void whatSomeoneElseDeletedComesBackWithASave();
    void aDeletedOrganisationStaysWithItsOperators_data();
    void aDeletedOrganisationStaysWithItsOperators();
    void theMapsHoldNamesAndAddresses_data();
    void theMapsHoldNamesAndAddresses();
    void rowsWithoutAnIdAreLeftOut_data();
    void rowsWithoutAnIdAreLeftOut();
    void namesComeBackAsTheyWere_data();
    void namesComeBackAsTheyWere();

private:
    void addUnits();
    const Unit &unit()
    {
        return unitOf(*static_cast<bool *>(QTest::qData("department", QMetaType::Bool)));
    }
    QString table()
    {
        return text(unit().table);
    }
    QString line(const char *action, const UuidString &id, const QString &name)
    {
        return QStringLiteral("%1%2 Human %3: %2: %4")
            .arg(text(action), text(unit().word), id.toString(), name);
    }
    QStringList failure(const char *action, const char *code)
    {
        return {QStringLiteral("failed %1%2 %3: %2 from access.supportdb")
                    .arg(text(action), text(unit().word), text(code))};
    }
};

void TestOrganizationStore::addUnits()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<bool>("department");
    addPlaceRows([](const QString &place, Place where) {
        QTest::newRow(qPrintable(place + text(": an organisation"))) << where << false;
        QTest::newRow(qPrintable(place + text(": a department"))) << where << true;
    });
}

void TestOrganizationStore::aNewOneIsAdded_data()
{
    addUnits();
}

void TestOrganizationStore::aNewOneIsAdded()
{
    QVERIFY(!unit().exists(*m_handler, idOf(1)));
    QVERIFY(unit().save(*m_handler, idOf(1), text("Keuhkot")));
    QCOMPARE(trail(), QStringList{line("Add", idOf(1), text("Keuhkot"))});
    QVERIFY(unit().exists(*m_handler, idOf(1)));
    QVERIFY(!unit().exists(*m_handler, UuidString()));
    QCOMPARE(elsewhere(text("SELECT id, name, deleted FROM ") + table()),
             QStringList{idOf(1).toString() + text("|Keuhkot|0")});
    QVERIFY(trail().isEmpty());
}

void TestOrganizationStore::aKnownOneIsRenamed_data()
{
    addUnits();
}

void TestOrganizationStore::aKnownOneIsRenamed()
{
    QVERIFY(unit().save(*m_handler, idOf(1), text("Keuhkot")));
    QVERIFY(unit().save(*m_handler, idOf(2), text("Sydän")));
    trail();
    QVERIFY(unit().save(*m_handler, idOf(1), text("Keuhkosairaudet")));
    QCOMPARE(trail(), QStringList{line("Update", idOf(1), text("Keuhkosairaudet"))});
    QCOMPARE(elsewhere(text("SELECT name FROM %1 ORDER BY id").arg(table())),
             (QStringList{text("Keuhkosairaudet"), text("Sydän")}));
}

void TestOrganizationStore::fiftyOneCharactersAreStoredAsFifty_data()
{
    addUnits();
}

void TestOrganizationStore::fiftyOneCharactersAreStoredAsFifty()
{
    const QString name = text("ä").repeated(51);
    QVERIFY(unit().save(*m_handler, idOf(1), name));
    QCOMPARE(name.size(), 51);
    QCOMPARE(trail(), QStringList{line("Add", idOf(1), name.left(50))});
    QCOMPARE(elsewhere(text("SELECT name FROM ") + table()), QStringList{name.left(50)});
    QVERIFY(unit().save(*m_handler, idOf(2), text("中б").repeated(5000)));
    QCOMPARE(elsewhere(text("SELECT name FROM %1 ORDER BY id").arg(table())).last(),
             text("中б").repeated(25));
    // A character of two halves is kept whole or not at all.
    QVERIFY(unit().save(*m_handler, idOf(3), QString(49, QLatin1Char('x')) + text("🫁")));
    QCOMPARE(elsewhere(text("SELECT name FROM %1 ORDER BY id").arg(table())).last(),
             QString(49, QLatin1Char('x')));
}

void TestOrganizationStore::anAddressIsCutAsWell_data()
{
    addPlaces();
}

void TestOrganizationStore::anAddressIsCutAsWell()
{
    QVERIFY(m_handler->saveDepartment(idOf(1), text("Keuhkot"), text("ö").repeated(51)));
    QVERIFY(m_handler->saveDepartment(idOf(2), text("Sydän"), QString()));
    QCOMPARE(elsewhere(text("SELECT address FROM department ORDER BY id")),
             (QStringList{text("ö").repeated(50), text("NULL")}));
    QVERIFY(m_handler->saveDepartment(idOf(1), text("Keuhkot"), text("")));
    QCOMPARE(elsewhere(text("SELECT address FROM department ORDER BY id")),
             (QStringList{text(""), text("NULL")}));
}

void TestOrganizationStore::anEmptyNameGoesThrough_data()
{
    addUnits();
}

void TestOrganizationStore::anEmptyNameGoesThrough()
{
    QVERIFY(unit().save(*m_handler, idOf(1), text("")));
    QCOMPARE(trail(), QStringList{line("Add", idOf(1), QString())});
    QCOMPARE(elsewhere(text("SELECT name FROM ") + table()), QStringList{text("")});
}

void TestOrganizationStore::noIdAndNoNameAreRefused_data()
{
    addUnits();
}

void TestOrganizationStore::noIdAndNoNameAreRefused()
{
    QVERIFY(!unit().save(*m_handler, UuidString(), text("Keuhkot")));
    QCOMPARE(trail(), failure("Add", "16300000"));
    QVERIFY(!m_handler->isConnected());
    QVERIFY(!unit().save(*m_handler, idOf(1), QString()));
    QCOMPARE(trail(), failure("Add", "16300000"));
    QCOMPARE(elsewhere(text("SELECT COUNT(*) FROM ") + table()), QStringList{text("0")});
}

void TestOrganizationStore::deletingReplacesTheNameAndLogsNothing_data()
{
    addUnits();
}

void TestOrganizationStore::deletingReplacesTheNameAndLogsNothing()
{
    QVERIFY(unit().save(*m_handler, idOf(1), text("Keuhkot")));
    trail();
    QVERIFY(unit().remove(*m_handler, idOf(1)));
    QVERIFY(trail().isEmpty());
    const QString row = elsewhere(text("SELECT deleted, name FROM ") + table()).value(0);
    QVERIFY2(QRegExp(text("1\\|_deleted\\d{1,10}")).exactMatch(row), qPrintable(row));
    QVERIFY(unit().exists(*m_handler, idOf(1)));
    QVERIFY(unit().save(*m_handler, idOf(2), text("Keuhkot")));
    QVERIFY(m_handler->isConnected());
}

void TestOrganizationStore::deletingWhatIsNotThereLogsNothing_data()
{
    addUnits();
}

void TestOrganizationStore::deletingWhatIsNotThereLogsNothing()
{
    QVERIFY(!unit().remove(*m_handler, idOf(1)));
    QVERIFY(!unit().remove(*m_handler, UuidString()));
    QVERIFY(m_handler->isConnected());
    m_handler->closeConnection();
    QVERIFY(!unit().remove(*m_handler, idOf(1)));
    QVERIFY(!unit().exists(*m_handler, idOf(1)));
    QVERIFY(trail().isEmpty());
}

void TestOrganizationStore::aDeletedRowOfTheSameIdIsMadeLiveAgain_data()
{
    addUnits();
}

void TestOrganizationStore::aDeletedRowOfTheSameIdIsMadeLiveAgain()
{
    QVERIFY(unit().save(*m_handler, idOf(1), text("Keuhkot")));
    QVERIFY(unit().remove(*m_handler, idOf(1)));
    trail();
    QVERIFY(unit().save(*m_handler, idOf(1), text("Keuhkot")));
    QCOMPARE(trail(), QStringList{line("Update", idOf(1), text("Keuhkot"))});
    QCOMPARE(elsewhere(text("SELECT name, deleted FROM ") + table()), QStringList{text("Keuhkot|0")});
}

void TestOrganizationStore::aNameThatIsTakenIsRefusedByTheTable_data()
{
    addUnits();
}

void TestOrganizationStore::aNameThatIsTakenIsRefusedByTheTable()
{
    QVERIFY(unit().save(*m_handler, idOf(1), text("Keuhkot")));
    trail();
    QVERIFY(!unit().save(*m_handler, idOf(2), text("Keuhkot")));
    QCOMPARE(trail(), failure("Add", "16300002"));
    QVERIFY(!m_handler->isConnected());
    QVERIFY(connectHandler());
    QVERIFY(unit().save(*m_handler, idOf(2), text("Sydän")));
    trail();
    QVERIFY(!unit().save(*m_handler, idOf(2), text("Keuhkot")));
    QCOMPARE(trail(), failure("Add", "16300002"));
    QCOMPARE(elsewhere(text("SELECT name FROM %1 ORDER BY id").arg(table())),
             (QStringList{text("Keuhkot"), text("Sydän")}));
}

void TestOrganizationStore::whatSomeoneElseDeletedComesBackWithASave_data()
{
    addUnits();
}

void TestOrganizationStore::whatSomeoneElseDeletedComesBackWithASave()
{
    QVERIFY(unit().save(*m_handler, idOf(1), text("Keuhkot")));
    QVERIFY(elsewhere(text("UPDATE %1 SET deleted = 1, name = '_deleted7'").arg(table())).isEmpty());
    QVERIFY(unit().remove(*m_handler, idOf(1)));
    QVERIFY(unit().save(*m_handler, idOf(1), text("Sydän")));
    QCOMPARE(elsewhere(text("SELECT name, deleted FROM ") + table()), QStringList{text("Sydän|0")});
}

void TestOrganizationStore::aDeletedOrganisationStaysWithItsOperators_data()
{
    addPlaces();
}

void TestOrganizationStore::aDeletedOrganisationStaysWithItsOperators()
{
    QVERIFY(m_handler->saveOrganization(idOf(70), text("Keuhkot")));
    const OperatorModel op = makeOperator(idOf(1), text("anna"));
    op->setOrganization({idOf(70), {}});
    QVERIFY(m_handler->saveOperator(op));
    QVERIFY(m_handler->deleteOrganization(idOf(70)));
    QCOMPARE(m_handler->getOperators().first()->organization().key, idOf(70));
}

void TestOrganizationStore::theMapsHoldNamesAndAddresses_data()
{
    addPlaces();
}

void TestOrganizationStore::theMapsHoldNamesAndAddresses()
{
    QVERIFY(m_handler->saveOrganization(idOf(1), text("Sairaala")));
    QVERIFY(m_handler->saveOrganization(idOf(2), text("Terveyskeskus")));
    QVERIFY(m_handler->saveOrganization(idOf(3), text("Poistettu")));
    QVERIFY(m_handler->deleteOrganization(idOf(3)));
    QVERIFY(m_handler->saveDepartment(idOf(4), text("Keuhkot"), text("Kuja 1")));
    QVERIFY(m_handler->saveDepartment(idOf(5), text("Sydän"), QString()));
    QVERIFY(m_handler->saveDepartment(idOf(6), text("Poistettu"), text("Kuja 3")));
    QVERIFY(m_handler->deleteDepartment(idOf(6)));
    trail();
    QMap<UuidString, QString> organizations;
    QMultiMap<UuidString, QString> departments;
    QCOMPARE(m_handler->getOrganizationInfo(organizations, departments), QString());
    QVERIFY(trail().isEmpty());
    QCOMPARE(organizations,
             (QMap<UuidString, QString>{{idOf(1), text("Sairaala")}, {idOf(2), text("Terveyskeskus")}}));
    QCOMPARE(departments.keys(), (QList<UuidString>{idOf(4), idOf(4), idOf(5), idOf(5)}));
    QCOMPARE(departments.values(idOf(4)), (QList<QString>{text("Kuja 1"), text("Keuhkot")}));
    QCOMPARE(departments.values(idOf(5)), (QList<QString>{QString(), text("Sydän")}));
}

void TestOrganizationStore::rowsWithoutAnIdAreLeftOut_data()
{
    addPlaces();
}

void TestOrganizationStore::rowsWithoutAnIdAreLeftOut()
{
    for (const char *unitTable : {"organization", "department"}) {
        for (const char *values : {"(name, deleted) VALUES ('default id', 0)",
                                   "(id, name, deleted) VALUES ('short', 'short id', 0)",
                                   "(id, name, deleted) VALUES ('', 'empty id', 0)",
                                   "(id, deleted) VALUES ('000000000000000000000000000000000012', 0)"})
            QVERIFY(elsewhere(text("INSERT INTO %1 %2").arg(text(unitTable), text(values))).isEmpty());
    }
    QMap<UuidString, QString> organizations;
    QMultiMap<UuidString, QString> departments;
    QCOMPARE(m_handler->getOrganizationInfo(organizations, departments), QString());
    QCOMPARE(organizations, (QMap<UuidString, QString>{{idOf(12), QString()}}));
    QCOMPARE(departments.values(), (QList<QString>{QString(), QString()}));
}

void TestOrganizationStore::namesComeBackAsTheyWere_data()
{
    addPlacesAndNames();
}

void TestOrganizationStore::namesComeBackAsTheyWere()
{
    QFETCH(QString, name);
    QVERIFY(m_handler->saveOrganization(idOf(1), name));
    QVERIFY(m_handler->saveDepartment(idOf(2), name, name));
    QMap<UuidString, QString> organizations;
    QMultiMap<UuidString, QString> departments;
    QCOMPARE(m_handler->getOrganizationInfo(organizations, departments), QString());
    QCOMPARE(organizations.value(idOf(1)), name);
    QCOMPARE(departments.values(idOf(2)), (QList<QString>{name, name}));
}

QTEST_MAIN(TestOrganizationStore)
#include "test_organizationstore.moc"
