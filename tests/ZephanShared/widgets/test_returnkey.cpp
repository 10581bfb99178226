#include "ZephanShared/widgets/returnkey.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <memory>

namespace {

/// A press and two repeats, as of a key that is held down.
void holdKey(QWidget &widget, Qt::Key key)
{
    const QString text = key == Qt::Key_A ? QStringLiteral("a") : QStringLiteral("\r");
    for (const bool repeated : {false, true, true}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text, repeated);
        QCoreApplication::sendEvent(&widget, &press);
    }
}

}  // namespace

class TestReturnKey : public QObject
{
    Q_OBJECT

private slots:
    void returnClicksAButton_data();
    void returnClicksAButton();
    void aHeldReturnClicksOnce();
    void aFieldAnswersToAHeldReturnOnce();
};

void TestReturnKey::returnClicksAButton_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<int>("clicks");

    QTest::newRow("Return clicks") << int(Qt::Key_Return) << true << 1;
    QTest::newRow("Enter of the number pad clicks") << int(Qt::Key_Enter) << true << 1;
    QTest::newRow("Space clicks as before") << int(Qt::Key_Space) << true << 1;
    QTest::newRow("a letter does nothing") << int(Qt::Key_A) << true << 0;
    QTest::newRow("a disabled button is not clicked") << int(Qt::Key_Return) << false << 0;
}

void TestReturnKey::returnClicksAButton()
{
    QFETCH(int, key);
    QFETCH(bool, enabled);
    QFETCH(int, clicks);
    for (QAbstractButton *button :
         {static_cast<QAbstractButton *>(new QToolButton), static_cast<QAbstractButton *>(new QPushButton)}) {
        const std::unique_ptr<QAbstractButton> owner(button);
        clickByReturn(button);
        button->setEnabled(enabled);
        const QSignalSpy clicked(button, SIGNAL(clicked()));
        button->show();
        QTest::keyClick(button, static_cast<Qt::Key>(key));
        QCOMPARE(clicked.count(), clicks);
    }
}

void TestReturnKey::aHeldReturnClicksOnce()
{
    QToolButton button;
    clickByReturn(&button);
    const QSignalSpy clicked(&button, SIGNAL(clicked()));
    holdKey(button, Qt::Key_Return);
    QCOMPARE(clicked.count(), 1);
}

void TestReturnKey::aFieldAnswersToAHeldReturnOnce()
{
    QLineEdit field;
    takeReturnOnce(&field);
    const QSignalSpy pressed(&field, SIGNAL(returnPressed()));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter})
        holdKey(field, key);
    QCOMPARE(pressed.count(), 2);
    holdKey(field, Qt::Key_A);
    QCOMPARE(field.text(), QStringLiteral("aaa"));
}

QTEST_MAIN(TestReturnKey)
#include "test_returnkey.moc"
