#include "support/messageboxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {

constexpr int kPollInterval = 10;  // milliseconds

QString label(const QAbstractButton *button)
{
    return button->text().remove(QLatin1Char('&'));
}

}  // namespace

MessageBoxes::MessageBoxes(QStringList answers)
    : m_answers(std::move(answers))
{
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &MessageBoxes::answer);
    timer->start(kPollInterval);
}

void MessageBoxes::answer()
{
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (!box || !box->isVisible())
        return;
    SeenBox seen{box->windowTitle(), box->text(), box->informativeText(), box->icon(), {}};
    for (const QAbstractButton *button : box->buttons())
        seen.buttons.append(label(button));
    m_seen.append(seen);

    const QString wanted = m_answers.isEmpty() ? QString() : m_answers.takeFirst();
    QAbstractButton *choice = box->defaultButton() ? box->defaultButton() : box->buttons().value(0);
    for (QAbstractButton *button : box->buttons()) {
        if (!wanted.isEmpty() && label(button) == wanted)
            choice = button;
    }
    if (choice)
        QTest::mouseClick(choice, Qt::LeftButton);
    else
        box->reject();
}
