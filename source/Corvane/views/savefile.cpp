#include "Corvane/views/savefile.h"

#include "ZephanShared/toolkit/nativepath.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>

namespace {

/// The folder of the last file, for the next one.
QString &lastFolder()
{
    static QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return folder;
}

}  // namespace

QString SaveFile::choose(QWidget *parent, const QString &caption, const QString &name, const QString &filter)
{
    QFileDialog dialog(parent, caption, lastFolder(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(QFileInfo(name).suffix());
    dialog.selectFile(name);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    const QString file = dialog.selectedFiles().constFirst();
    lastFolder() = QFileInfo(file).absolutePath();
    return nativePath(file);
}

void SaveFile::tellFailure(QWidget *parent, const QString &file, const QString &cause)
{
    QMessageBox box(QMessageBox::Warning, tr("Saving failed"),
                    tr("The file %1 could not be saved.").arg(file), QMessageBox::Ok, parent);
    box.setObjectName(QStringLiteral("save_failure"));
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(cause);
    box.button(QMessageBox::Ok)->setText(tr("Ok"));
    box.exec();
}
