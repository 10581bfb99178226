#include "Corvane/settings/settingsparking.h"
#include "settingstest.h"
#include "support/fulldisk.h"
#include "support/workstation.h"

#include <QDateTime>
#include <QDir>
#include <QTest>

using namespace SettingsTest;

namespace {

const QByteArray kFormer = "[site]\nown=former\n";
const QByteArray kOther = "[site]\nown=other\n";

void setAge(const QString &path, int seconds)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(
        file.setFileTime(QDateTime::currentDateTime().addSecs(-seconds), QFileDevice::FileModificationTime));
}

}  // namespace

class TestSettingsParking : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void anInterruptedOperationIsTakenBackAtTheNextStart();
    void theNewestFormerFileComesBack();
    void aWorkingFileThatIsThereStays();
    void withoutAnythingLeftNothingHappens();
    void theFormerFileStaysWhileTheNewSettingsCannotBeWritten();
    void theFormerFileStaysWhenThatHappensTwice();
    void theFormerFileComesBackWhenNothingCanBePlaced();
    void emptySettingsAreSettings();
    void nothingIsPlacedOverAFile();

private:
    /// Makes other settings of the former ones, without being able to write them.
    void replaceWithoutRoom();
    void recover()
    {
        SettingsParking::recoverAbandoned(m_workstation.dataDirectory());
    }
    QString working() const
    {
        return m_workstation.dataDirectory() + QStringLiteral("corvane.ini");
    }
    QString temporary(const QString &name) const
    {
        return m_workstation.dataDirectory() + QStringLiteral("tmp_ini/") + name;
    }
    bool hasTemporaryDirectory() const
    {
        return QDir(temporary(QString())).exists();
    }

    Workstation m_workstation;
};

void TestSettingsParking::init()
{
    store()->changeSettingsFile(m_workstation.path(QStringLiteral("aside.ini")));
    QDir(m_workstation.dataDirectory()).removeRecursively();
    QDir().mkpath(m_workstation.dataDirectory());
}

void TestSettingsParking::anInterruptedOperationIsTakenBackAtTheNextStart()
{
    QVERIFY(writeFile(temporary(QStringLiteral("recovery_corvane.ini")), kFormer));
    QVERIFY(writeFile(temporary(QStringLiteral("new_corvane.ini")), kOther));
    recover();
    QCOMPARE(readFile(working()), kFormer);
    QVERIFY(!hasTemporaryDirectory());
    const QByteArray log = readFile(m_workstation.runtimeLog());
    QCOMPARE(log.count("Replacing the settings was interrupted; the former ones are in use"), 1);
}

void TestSettingsParking::theNewestFormerFileComesBack()
{
    QVERIFY(writeFile(temporary(QStringLiteral("recovery_corvane.ini")), kOther));
    setAge(temporary(QStringLiteral("recovery_corvane.ini")), 60);
    QVERIFY(writeFile(temporary(QStringLiteral("recovery_corvane.ini1804289383")), kFormer));
    recover();
    QCOMPARE(readFile(working()), kFormer);
    QVERIFY(!hasTemporaryDirectory());
}

void TestSettingsParking::aWorkingFileThatIsThereStays()
{
    QVERIFY(writeFile(working(), kOther));
    QVERIFY(writeFile(temporary(QStringLiteral("recovery_corvane.ini")), kFormer));
    recover();
    QCOMPARE(readFile(working()), kOther);
    QVERIFY(!hasTemporaryDirectory());
}

void TestSettingsParking::withoutAnythingLeftNothingHappens()
{
    recover();
    QVERIFY(!QFile::exists(working()));
    QVERIFY(!hasTemporaryDirectory());
    SettingsParking::recoverAbandoned(QString());
}

void TestSettingsParking::replaceWithoutRoom()
{
    const FullDisk disk;
    SettingsParking parking(m_workstation.dataDirectory());
    parking.park();
    parking.unpark();
    setStored("site/own", "other");
    parking.clear();
    QVERIFY(!QFile::exists(working()));
    QVERIFY(hasTemporaryDirectory());
}

void TestSettingsParking::theFormerFileStaysWhileTheNewSettingsCannotBeWritten()
{
    QVERIFY(writeFile(working(), kFormer));
    store()->changeSettingsFile(working());
    replaceWithoutRoom();
    recover();
    QCOMPARE(readFile(working()), kFormer);
    QVERIFY(!hasTemporaryDirectory());
}

void TestSettingsParking::theFormerFileStaysWhenThatHappensTwice()
{
    QVERIFY(writeFile(working(), kFormer));
    store()->changeSettingsFile(working());
    replaceWithoutRoom();
    replaceWithoutRoom();
    recover();
    QCOMPARE(readFile(working()), kFormer);
    QVERIFY(!hasTemporaryDirectory());
}

void TestSettingsParking::theFormerFileComesBackWhenNothingCanBePlaced()
{
    const QString source = m_workstation.path(QStringLiteral("source.ini"));
    QVERIFY(writeFile(source, kOther));
    QVERIFY(writeFile(working(), kFormer));
    store()->changeSettingsFile(working());
    replaceWithoutRoom();
    {
        const FullDisk disk;
        SettingsParking parking(m_workstation.dataDirectory());
        parking.park();
        QVERIFY(!parking.place(source));
        parking.recover();
        parking.unpark();
        parking.clear();
    }
    QCOMPARE(readFile(working()), kFormer);
    QCOMPARE(stored("site/own").toString(), QStringLiteral("former"));
    QVERIFY(!hasTemporaryDirectory());
}

void TestSettingsParking::emptySettingsAreSettings()
{
    QVERIFY(writeFile(working(), kFormer));
    store()->changeSettingsFile(working());
    SettingsParking parking(m_workstation.dataDirectory());
    parking.park();
    parking.unpark();
    parking.clear();
    QVERIFY(!hasTemporaryDirectory());
    recover();
    QVERIFY(!QFile::exists(working()));
}

void TestSettingsParking::nothingIsPlacedOverAFile()
{
    const QString source = m_workstation.path(QStringLiteral("source.ini"));
    QVERIFY(writeFile(source, kOther));
    SettingsParking parking(m_workstation.dataDirectory());
    QVERIFY(writeFile(working(), kFormer));
    QVERIFY(!parking.place(source));
    QCOMPARE(readFile(working()), kFormer);
    QFile::remove(working());
    QVERIFY(parking.place(source));
    QCOMPARE(readFile(working()), kOther);
}

QTEST_GUILESS_MAIN(TestSettingsParking)
#include "test_settingsparking.moc"
