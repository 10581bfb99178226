#include "ZephanShared/toolkit/filecommit.h"

#include "support/fulldisk.h"
#include "support/workstation.h"

#include <QSaveFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

bool save(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && commitWhole(file);
}

}  // namespace

class TestFileCommit : public QObject
{
    Q_OBJECT

private slots:
    void aFileIsReplacedByAllOrNothing_data();
    void aFileIsReplacedByAllOrNothing();
};

void TestFileCommit::aFileIsReplacedByAllOrNothing_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("room");
    QTest::addColumn<bool>("saved");

    QTest::newRow("there is room") << 1000 << 1000 << true;
    QTest::newRow("no room at all") << 1000 << 0 << false;
    QTest::newRow("room for a part that was in memory") << 1000 << 300 << false;
    QTest::newRow("room for a part of many bytes") << 100000 << 5000 << false;
    QTest::newRow("no bytes and no room") << 0 << 0 << true;
}

void TestFileCommit::aFileIsReplacedByAllOrNothing()
{
    QFETCH(int, size);
    QFETCH(int, room);
    QFETCH(bool, saved);
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("file"));
    const QByteArray former = "former";
    const QByteArray bytes(size, 'x');
    QVERIFY(writeFile(path, former));
    {
        const FullDisk disk(static_cast<unsigned long>(room));
        QCOMPARE(save(path, bytes), saved);
    }
    QVERIFY(readFile(path) == (saved ? bytes : former));
}

QTEST_GUILESS_MAIN(TestFileCommit)
#include "test_filecommit.moc"
