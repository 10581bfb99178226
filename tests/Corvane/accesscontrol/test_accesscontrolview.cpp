#include "CommunicationAndData/settings/settingshandler.h"
#include "Corvane/accesscontrol/accesscontrolview.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "support/workstation.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {

/// Waits for the connection options, looks whether they offer the offline file, and answers them.
class OptionsAnswer : public QObject
{
public:
    explicit OptionsAnswer(QString location)
        : m_location(std::move(location))
    {
        connect(&m_timer, &QTimer::timeout, this, &OptionsAnswer::answer);
        m_timer.start(10);
    }

    int dialogs = 0;
    bool offlineOffered = false;

private:
    void answer()
    {
        auto *dialog = qobject_cast<SupportConnectionHandler *>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        ++dialogs;
        auto *mode = dialog->findChild<QComboBox *>(QStringLiteral("online_mode_combo"));
        offlineOffered = mode->isVisible();
        if (m_location.isEmpty()) {
            dialog->reject();
            return;
        }
        mode->setCurrentIndex(1);
        dialog->findChild<QLineEdit *>(QStringLiteral("offline_location_edit"))->setText(m_location);
        QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("connect_button")), Qt::LeftButton);
    }

    QString m_location;
    QTimer m_timer;
};

}  // namespace

class TestAccesscontrolView : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void withoutAHandlerThereIsNoConnection();
    void withoutAConnectionTheOptionsAreAsked();
    void cancelledOptionsLeaveTheViewUnready();
    void aStandingConnectionAsksNothing();
    void theConnectionRowIsAtTheFoot();

private:
    Workstation m_workstation;
    std::unique_ptr<SupportConnectionHandler> m_handler;
};

void TestAccesscontrolView::init()
{
    SettingsHandler::getInstance()->changeSettingsFile(m_workstation.dataDirectory() +
                                                       QStringLiteral("corvane.ini"));
    m_handler = std::make_unique<SupportConnectionHandler>(m_workstation.dataDirectory(), nullptr);
}

void TestAccesscontrolView::withoutAHandlerThereIsNoConnection()
{
    AccesscontrolView view(nullptr, nullptr);
    QVERIFY(!view.ensureConnection());
    QVERIFY(!view.findChild<QPushButton *>(QStringLiteral("connection_options_button")));
}

void TestAccesscontrolView::withoutAConnectionTheOptionsAreAsked()
{
    AccesscontrolView view(m_handler.get(), nullptr);
    OptionsAnswer answer(m_workstation.path(QStringLiteral("asked")));
    QVERIFY(view.ensureConnection());
    QCOMPARE(answer.dialogs, 1);
    QVERIFY(answer.offlineOffered);
    QVERIFY(m_handler->isConnected());
}

void TestAccesscontrolView::cancelledOptionsLeaveTheViewUnready()
{
    AccesscontrolView view(m_handler.get(), nullptr);
    OptionsAnswer answer{QString()};
    QVERIFY(!view.ensureConnection());
    QCOMPARE(answer.dialogs, 1);
}

void TestAccesscontrolView::aStandingConnectionAsksNothing()
{
    AccesscontrolView view(m_handler.get(), nullptr);
    OptionsAnswer answer(m_workstation.path(QStringLiteral("standing")));
    QVERIFY(view.ensureConnection());
    QVERIFY(view.ensureConnection());
    QCOMPARE(answer.dialogs, 1);
}

void TestAccesscontrolView::theConnectionRowIsAtTheFoot()
{
    AccesscontrolView view(m_handler.get(), nullptr);
    view.resize(800, 600);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const auto *label = view.findChild<QLabel *>(QStringLiteral("connection_state_label"));
    const auto *button = view.findChild<QPushButton *>(QStringLiteral("connection_options_button"));
    QCOMPARE(label->text(), QStringLiteral("No connection to authentication database"));
    QVERIFY(button->y() < label->y());
    QVERIFY(button->y() > view.height() - 100);

    OptionsAnswer answer(m_workstation.path(QStringLiteral("foot")));
    view.ensureConnection();
    QCOMPARE(label->text(), QStringLiteral("Connected to authentication database"));
}

QTEST_MAIN(TestAccesscontrolView)
#include "test_accesscontrolview.moc"
