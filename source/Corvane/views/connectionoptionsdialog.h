#ifndef CONNECTIONOPTIONSDIALOG_H
#define CONNECTIONOPTIONSDIALOG_H

#include <QDialog>
#include <QLatin1String>
#include <QList>
#include <QStringList>
#include <QVariantMap>

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;
class QVBoxLayout;

/// Keys of the maps that the dialog edits.
namespace ConnectionOptions {

constexpr QLatin1String kOnlineMode("online_mode");         // bool, in the online map
constexpr QLatin1String kParams("params");                  // map of names to values
constexpr QLatin1String kConnectOptions("connectoptions");  // text list
constexpr QLatin1String kUsername("username");
constexpr QLatin1String kPassword("password");
constexpr QLatin1String kLocation("location");  // path, in the offline map

/// The entries of stored connect options.
///
/// \param connectOptions  a text list, or empty text for none
/// \return                without empty entries
QStringList optionList(const QVariant &connectOptions);

}  // namespace ConnectionOptions

/// Where the audit trail is read from: an online database, or an offline file.
///
/// It edits two maps of its caller in place, and only when Save is pressed. It makes no connection itself.
class ConnectionOptionsDialog : public QDialog
{
    Q_OBJECT

public:
    /// \param onlineOptions   the mode, parameters, options, user name and password; not owned
    /// \param offlineOptions  the location; not owned
    ConnectionOptionsDialog(QVariantMap *onlineOptions, QVariantMap *offlineOptions, QWidget *parent);

public slots:
    void handleSaveClicked();
    void handleCancelClicked();
    void handleToolClicked();
    /// \param index  0 online, 1 offline
    void toggleDatabaseLocation(int index);
    void addEmptyEditors(bool setFocus = true);
    void handleBrowseOfflineLocation();
    void handleSaveButtonState();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    /// A column of line edits, and the layout that they stand in.
    struct LineList
    {
        QVBoxLayout *layout = nullptr;
        QList<QLineEdit *> edits;
    };

    void buildModeCombo();
    void buildOnlineArea();
    void buildOfflineArea();
    void buildButtons();
    QLabel *makeLabel(const QString &text, QWidget *parent) const;
    QLineEdit *makeEdit(const QString &name, const QString &accessibleName, QWidget *parent) const;
    QScrollArea *makeArea(QWidget *content);
    void addEdit(LineList &list, const QString &text);
    void keepOneSpare(LineList &list, bool moveFocus);
    bool hasOnlineChange() const;
    bool hasOfflineChange() const;
    QVariantMap editedParameters() const;
    QStringList editedOptions() const;

    QVariantMap *m_onlineOptions;
    QVariantMap *m_offlineOptions;
    bool m_online;
    QGridLayout *m_grid;
    QComboBox *m_modeCombo = nullptr;
    QScrollArea *m_onlineArea = nullptr;
    QScrollArea *m_offlineArea = nullptr;
    QLineEdit *m_username = nullptr;
    QLineEdit *m_password = nullptr;
    QLineEdit *m_location = nullptr;
    LineList m_settings;
    LineList m_parameters;
    QPushButton *m_saveButton = nullptr;
    QPushButton *m_cancelButton = nullptr;
};

#endif
