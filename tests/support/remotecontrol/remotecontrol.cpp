#include "remotecontrol.h"

#include "support/userinput.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QLineEdit>
#include <QLocalSocket>
#include <QMainWindow>
#include <QMessageBox>
#include <QTest>
#include <QTextEdit>
#include <QTimer>

#include <functional>

namespace {

QWidget *findWidget(const QString &name)
{
    for (QWidget *widget : QApplication::allWidgets()) {
        if (widget->objectName() == name)
            return widget;
    }
    return nullptr;
}

QMainWindow *mainWindow()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *window = qobject_cast<QMainWindow *>(widget))
            return window;
    }
    return nullptr;
}

QString textOf(const QWidget *widget)
{
    for (const char *property : {"text", "plainText", "currentText"}) {
        const QVariant value = widget->property(property);
        if (value.isValid())
            return value.toString();
    }
    return QString();
}

}  // namespace

RemoteControl::RemoteControl(const QString &socketPath)
{
    connect(&m_server, &QLocalServer::newConnection, this, &RemoteControl::acceptTest);
    m_server.listen(socketPath);
    QCoreApplication::instance()->installEventFilter(this);
}

bool RemoteControl::eventFilter(QObject *watched, QEvent *event)
{
    const auto *widget = event->type() == QEvent::Show ? qobject_cast<QWidget *>(watched) : nullptr;
    if (widget && widget->isWindow())
        m_shownWindows.append(QString::fromLatin1(widget->metaObject()->className()));
    return QObject::eventFilter(watched, event);
}

void RemoteControl::acceptTest()
{
    QLocalSocket *test = m_server.nextPendingConnection();
    connect(test, &QLocalSocket::readyRead, this, &RemoteControl::answerRequests);
}

void RemoteControl::answerRequests()
{
    auto *test = qobject_cast<QLocalSocket *>(sender());
    while (test->canReadLine()) {
        const QJsonObject request = QJsonDocument::fromJson(test->readLine()).object();
        test->write(QJsonDocument(answer(request)).toJson(QJsonDocument::Compact) + '\n');
        test->flush();
    }
}

QJsonObject RemoteControl::answer(const QJsonObject &request)
{
    const QString what = request[QLatin1String("do")].toString();
    const QString name = request[QLatin1String("name")].toString();
    const QString text = request[QLatin1String("text")].toString();
    if (what == QLatin1String("box"))
        return describeBox();
    if (what == QLatin1String("windows"))
        return {{QStringLiteral("shown"), m_shownWindows}};

    QWidget *widget = name.isEmpty() ? mainWindow() : findWidget(name);
    if (!widget)
        return {};
    if (what == QLatin1String("click"))
        later([widget] { QTest::mouseClick(widget, Qt::LeftButton); });
    else if (what == QLatin1String("choose"))
        later([widget, index = request[QLatin1String("index")].toInt()] {
            chooseEntry(qobject_cast<QComboBox *>(widget), index);
        });
    else if (what == QLatin1String("type"))
        QTest::keyClicks(widget, text);
    else if (what == QLatin1String("press return"))
        later([widget] { QTest::keyClick(widget, Qt::Key_Return); });
    else if (what == QLatin1String("invoke"))
        QMetaObject::invokeMethod(widget, text.toLatin1().constData());
    else if (what == QLatin1String("later"))
        later([widget, text] { QMetaObject::invokeMethod(widget, text.toLatin1().constData()); });
    else if (what == QLatin1String("resize"))
        widget->resize(request[QLatin1String("width")].toInt(), request[QLatin1String("height")].toInt());
    else if (what == QLatin1String("close"))
        later([widget] { widget->close(); });
    return describeWidget(widget);
}

/// The modal message box that is up; its one button is then clicked by the name "box_button".
QJsonObject RemoteControl::describeBox() const
{
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (!box || !box->isVisible())
        return {};
    QJsonArray buttons;
    for (QAbstractButton *button : box->buttons()) {
        button->setObjectName(QStringLiteral("box_button"));
        buttons.append(button->text().remove(QLatin1Char('&')));
    }
    return {{QStringLiteral("title"), box->windowTitle()},
            {QStringLiteral("text"), box->text()},
            {QStringLiteral("icon"), box->icon()},
            {QStringLiteral("buttons"), buttons}};
}

QJsonObject RemoteControl::describeWidget(const QWidget *widget)
{
    return {{QStringLiteral("visible"), widget->isVisible()},
            {QStringLiteral("enabled"), widget->isEnabled()},
            {QStringLiteral("text"), textOf(widget)},
            {QStringLiteral("width"), widget->width()},
            {QStringLiteral("height"), widget->height()}};
}

/// Does what may open a dialog or end the program once the answer is on its way.
void RemoteControl::later(const std::function<void()> &work)
{
    QTimer::singleShot(0, work);
}
