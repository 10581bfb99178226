#ifndef SETTINGSDATABASEDIALOG_H
#define SETTINGSDATABASEDIALOG_H

#include "Corvane/settings/connectioncache.h"
#include "ZephanShared/toolkit/actions.h"
#include "ZephanShared/toolkit/zephanerror.h"

#include <QDialog>
#include <QMap>
#include <QPointer>
#include <QVariant>

class ConnectionArea;

/// What the dialogs that work with the settings database have in common: the connection as it is edited and
/// remembered, and the working settings, which are as they were once the dialog has closed.
///
/// A dialog deletes itself when it closes, by whatever way.
class SettingsDatabaseDialog : public QDialog
{
    Q_OBJECT

public:
    /// \param dataPath  directory of `local_cache`, with its trailing separator
    /// \param username  remembered user name of the database, as the password for this run only; not owned
    SettingsDatabaseDialog(const QString &dataPath, QString *username, QString *password, QWidget *parent);

public slots:
    /// Escape does what the window's close button does.
    void reject() override;

signals:
    void requestReconnect(QMap<QString, QVariant> settings);
    void logError(Actions::Action action, ZephanError errorCode, QVariant errorData);

protected:
    virtual void updateTexts() = 0;
    /// Whether the working settings go back to what they were when the dialog opened.
    virtual bool restoresSettings() const;

    /// Takes the connection that was remembered, or that of the working settings.
    ///
    /// \param storedCredentials  user name and password come from the working settings, too, then
    void readConnection(bool storedCredentials);
    ConnectionArea *makeConnectionArea(int width);
    /// Reads what is edited.
    void saveConnection();
    /// Remembers what is edited: user name and password for this run, the rest in `local_cache`.
    void rememberConnection();
    const QMap<QString, QVariant> &connectionSettings() const;
    /// To be called before these are disabled: the focus rests on the dialog then. Disabling would hand it on
    /// to whatever comes next, where a key pressed twice does something else.
    ///
    /// \param heir  gets the focus afterwards; null for the one that had it
    void restFocus(const QWidgetList &disabled, QWidget *heir = nullptr);
    /// Gives the focus to where it belongs after a rest, unless a person has moved it meanwhile.
    void returnFocus();
    /// The dialog has closed, and answers that are still on their way don't count any more.
    bool isClosed() const;

    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    const ConnectionCache m_cache;
    QMap<QString, QVariant> m_connectionSettings;
    ConnectionArea *m_area = nullptr;
    QString *m_username;
    QString *m_password;
    QPointer<QWidget> m_resting;  ///< what gets the focus after a rest
    bool m_closed = false;
};

#endif
