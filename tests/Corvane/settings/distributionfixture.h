#ifndef TESTS_CORVANE_DISTRIBUTIONFIXTURE_H
#define TESTS_CORVANE_DISTRIBUTIONFIXTURE_H

#include "Corvane/settings/distributionview.h"
#include "settingsbench.h"
#include "settingstest.h"
#include "siteconnection.h"
#include "support/workstation.h"

#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <functional>

/// The distribution dialog with the store's real worker and a database of the site.
class DistributionFixture : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

protected:
    static void press(const QObject &dialog, const char *button)
    {
        QTest::mouseClick(SettingsTest::child<QPushButton>(dialog, button), Qt::LeftButton);
    }
    void open(const QString &operatorName = QStringLiteral("anna"));
    DistributionView *openFromMenu(SettingsBench &bench);
    void connectTo(const QString &file, const char *button = "save_button");
    void waitForTheEnd();
    /// Does something as soon as the dialog has been told that it is connected.
    void whenConnected(const std::function<void()> &action) const
    {
        connect(SettingsTest::store(), &SettingsHandler::onlineReconnected, m_dialog.data(), action,
                Qt::QueuedConnection);
    }
    QStringList rows(const QString &what) const
    {
        return SiteConnection::run(m_site,
                                   {QStringLiteral("SELECT %1 FROM configurations ORDER BY id").arg(what)});
    }
    QStringList remembered() const
    {
        return SiteConnection::remembered(m_files.cache(), "supportdb_online");
    }

    Workstation m_workstation;
    SettingsFiles m_files{m_workstation};
    QString m_site;
    QString m_username;
    QString m_password;
    QPointer<DistributionView> m_dialog;
};

#endif
