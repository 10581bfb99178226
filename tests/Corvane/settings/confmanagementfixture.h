#ifndef TESTS_CORVANE_CONFMANAGEMENTFIXTURE_H
#define TESTS_CORVANE_CONFMANAGEMENTFIXTURE_H

#include "Corvane/settings/confmanagementdialog.h"
#include "settingsbench.h"
#include "settingstest.h"
#include "siteconnection.h"
#include "support/workstation.h"

#include <QComboBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTest>
#include <QToolButton>

constexpr int kAnswerTime = 20000;  // milliseconds

/// The management dialog with the store's real worker and a database of the site.
class ConfManagementFixture : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

protected:
    /// Stores configurations 1 to `count` by the store itself, each with its own notes and number.
    void addConfigurations(int count, int active, const QString &language = QStringLiteral("sv"));
    void rememberSite() const
    {
        SiteConnection::remember(m_files.cache(), "supportdb_online", SiteConnection::params(m_site));
    }
    void open();
    void openConnected();
    void openFromMenu(SettingsBench &bench);
    void connectFromMenu(SettingsBench &bench);
    void choose(int id);
    void press(const char *button)
    {
        QTest::mouseClick(SettingsTest::child<QAbstractButton>(*m_dialog, button), Qt::LeftButton);
    }
    QComboBox *list() const
    {
        return SettingsTest::child<QComboBox>(*m_dialog, "configuration_list");
    }
    QString notes() const
    {
        return SettingsTest::child<QPlainTextEdit>(*m_dialog, "configuration_notes")->toPlainText();
    }
    QString connectText() const
    {
        return SettingsTest::child<QToolButton>(*m_dialog, "connect_button")->text();
    }
    bool isEnabled(const char *name) const
    {
        return SettingsTest::child<QWidget>(*m_dialog, name)->isEnabled();
    }
    /// Whether the list and what works on it can be used; the four go together.
    bool canChoose() const
    {
        const bool enabled = list()->isEnabled();
        for (const char *name : {"configuration_notes", "load_button", "delete_button"}) {
            if (isEnabled(name) != enabled)
                qFatal("%s differs from the list", name);
        }
        return enabled;
    }
    void waitForTheEnd()
    {
        QTRY_VERIFY_WITH_TIMEOUT(!m_dialog, kAnswerTime);
    }

    Workstation m_workstation;
    SettingsFiles m_files{m_workstation};
    QString m_site;
    QString m_username;
    QString m_password;
    QPointer<ConfManagementDialog> m_dialog;
};

#endif
