#include "support/filedialogs.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {

constexpr int kPollInterval = 10;  // milliseconds

}  // namespace

FileDialogs::FileDialogs(QStringList paths)
    : m_paths(std::move(paths))
{
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &FileDialogs::answer);
    timer->start(kPollInterval);
}

void FileDialogs::whenChosen(std::function<void(const QString &)> action)
{
    m_whenChosen = std::move(action);
}

void FileDialogs::answer()
{
    auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
    if (!dialog || !dialog->isVisible())
        return;
    m_seen.append({dialog->windowTitle(), dialog->directory().path(), dialog->nameFilters(),
                   dialog->labelText(QFileDialog::Accept), dialog->labelText(QFileDialog::Reject),
                   dialog->fileMode(), dialog->acceptMode(), dialog->testOption(QFileDialog::ShowDirsOnly)});

    const QString path = m_paths.isEmpty() ? QString() : m_paths.takeFirst();
    auto *buttons = dialog->findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"));
    auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    if (path.isEmpty() || !buttons || !edit) {
        dialog->reject();
        return;
    }
    if (m_whenChosen)
        connect(dialog, &QFileDialog::fileSelected, this, m_whenChosen);
    edit->setText(path);
    const bool saving = dialog->acceptMode() == QFileDialog::AcceptSave;
    QTest::mouseClick(buttons->button(saving ? QDialogButtonBox::Save : QDialogButtonBox::Open),
                      Qt::LeftButton);
}
