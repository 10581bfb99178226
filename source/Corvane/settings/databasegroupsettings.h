#ifndef DATABASEGROUPSETTINGS_H
#define DATABASEGROUPSETTINGS_H

#include "ZephanShared/widgets/baseview.h"

#include <QList>
#include <QMap>
#include <QVariant>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

/// Edits the connection parameters of one of the suite's databases, or of each by a selector.
///
/// It works on the settings store or on a connection parameter map of its caller. The map's keys are
/// "params", a map of parameter names to values, and under the database's group, as `supportdb/username`:
/// `username`, `password`, `connectoptions`, `driverparams`, `sqltype`, and for the support database
/// `online_mode` and `offline_location`.
class DatabaseGroupSettings : public BaseView
{
    Q_OBJECT

public:
    /// \param databaseIndex   0 action log, 1 persons, 2 studies, 3 support database; 4 shows the selector
    /// \param editable        without it all editors are disabled and nothing is ever saved
    /// \param enableActionDb  the selector's row of the action log can be chosen
    /// \param showOnlineMode  the choice between the online database and the offline file is shown
    /// \param settingsMap     read and written in place of the settings store; not owned, may be null
    DatabaseGroupSettings(int databaseIndex, bool editable, bool enableActionDb, bool showOnlineMode,
                          QMap<QString, QVariant> *settingsMap, QWidget *parent = nullptr);

    void updateTexts() override;

    /// Whether the offline file is chosen and not the online database.
    bool isOffline() const;
    /// Path of the offline access database, as the user typed or chose it.
    QString offlineLocation() const;

public slots:
    /// Writes the editors to the store or the map. Parts of a line that are not a name, one "=" and a value
    /// are left out.
    void saveDBSettings();
    /// Shows the database that is selected, after saving the one shown before if asked.
    void getCurrentDBSettings(bool saveFirst = true);
    /// Keeps one empty editor at the end of each list of lines.
    void addEmptyEditors(bool setFocus = true);
    /// \param index  0 online, any other offline
    void onlineModeChanged(int index);
    /// Lets the user choose the offline file or, by the other button, the directory for a new one.
    void offlineClicked();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    /// A column of line edits, and the layout that they stand in.
    struct LineList
    {
        QVBoxLayout *layout = nullptr;
        QList<QLineEdit *> editors;
    };

    void buildModeAndSelector();
    void buildConnection();
    void buildOffline();
    QLabel *addLabel(const char *name);
    QLineEdit *addField(const char *name, QLabel *label);
    void nameEditors();
    void showOnlineChoice();
    QList<QWidget *> onlineControls() const;
    QList<QWidget *> offlineControls() const;

    QMap<QString, QVariant> storedValues() const;
    void showValues(const QMap<QString, QVariant> &values);
    void selectSqlType(const QVariant &stored);
    void saveToMap();
    void saveToStore();
    QString mapKey(const char *name) const;
    QVariantMap editedParameters() const;
    QVariant editedOptions() const;

    QLineEdit *addEditor(LineList &list, const QString &text);
    void clearEditors(LineList &list);
    QLineEdit *lineBefore(const LineList &list) const;
    void keepEmptyEditor(LineList &list, bool moveFocus);
    static void removeEmptyEditors(LineList &list);
    void adjustParent();
    void fitToRows();

    int m_databaseIndex;
    bool m_editable;
    bool m_enableActionDb;
    bool m_showOnlineMode;
    QMap<QString, QVariant> *m_settingsMap;
    int m_shownDatabase = -1;  ///< the one whose values the editors hold

    QVBoxLayout *m_layout;
    QComboBox *m_modeCombo = nullptr;
    QComboBox *m_selector = nullptr;
    QLabel *m_sqlTypeLabel = nullptr;
    QComboBox *m_sqlTypeCombo = nullptr;
    QLabel *m_usernameLabel = nullptr;
    QLineEdit *m_usernameEdit = nullptr;
    QLabel *m_passwordLabel = nullptr;
    QLineEdit *m_passwordEdit = nullptr;
    QLabel *m_paramsLabel = nullptr;
    LineList m_paramEditors;
    QLabel *m_optionsLabel = nullptr;
    LineList m_optionEditors;
    QLabel *m_locationLabel = nullptr;
    QLineEdit *m_locationEdit = nullptr;
    QPushButton *m_browseButton = nullptr;
    QPushButton *m_createButton = nullptr;
};

#endif
