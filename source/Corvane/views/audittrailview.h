#ifndef AUDITTRAILVIEW_H
#define AUDITTRAILVIEW_H

#include "Corvane/views/audittrailquerystring.h"
#include "Corvane/views/csvtext.h"
#include "ZephanShared/widgets/baseview.h"

#include <QMap>
#include <QModelIndexList>
#include <QPointer>
#include <QSqlDatabase>
#include <QVector>

#include <memory>

class AuditTrailQueryModel;
class DateEdit;
class QAction;
class QBoxLayout;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSettings;
class QTableView;
class QToolButton;
class QVBoxLayout;
class SelectionPopup;

/// Where an administrator reads the action log, of the online database or of a local file, through nine
/// filters.
///
/// The view never writes to the log. Each of its queries is itself recorded, before it runs.
class AuditTrailView : public BaseView
{
    Q_OBJECT

public:
    /// \param dataPath  the data directory with its trailing separator
    explicit AuditTrailView(QString dataPath, QWidget *parent = nullptr);
    ~AuditTrailView() override;

    void updateTexts() override;

signals:
    void connected();
    void disconnected();

public slots:
    void showOrHideListWidget();
    void setFromFilter();
    void setToFilter();
    void setActionFilter();
    void setTypeFilter(int index);
    void setCategoryFilter(int index);
    void setLevelFilter();
    void setOperatorFilter();
    void setOperatorFilterTimer();
    void setHostFilter();
    void setHostFilterTimer();
    void setIdFilter();
    void setIdFilterTimer();
    void resetCountLabel();
    void setSort(int column, Qt::SortOrder order);
    /// \return  the result of the dialog; the options were kept when it is `QDialog::Accepted`
    int launchConnectionDialog();
    void connectToDatabase();
    void disconnectFromDatabase();

protected:
    void showEvent(QShowEvent *event) override;

private slots:
    void enableTableActions();
    void noteSelectionOfAll();
    void extendSelectionOfAll();
    void copyRowsWithHeaders();
    void copyCell();
    void saveAsCsv();
    void showChart();
    void logExportFailure(const QString &file);

private:
    static QString filterLabel(int index);

    // Screen
    void buildTable();
    void buildTableActions();
    void setTableActionTexts();
    void buildConnectionButton();
    void buildFilterPanel();
    QWidget *buildDateFilters();
    QBoxLayout *buildChoiceColumn(QBoxLayout *upper, QBoxLayout *lower);
    QBoxLayout *buildFilter(AuditFilterKey key, QWidget *field);
    QComboBox *buildTypeFilter();
    QComboBox *buildCategoryFilter();
    QPushButton *buildActionFilter();
    QPushButton *buildLevelFilter();
    QLineEdit *buildTextFilter(AuditFilterKey key, const char *filterSlot, const char *timerSlot);

    // Filters
    void setDateFilter(AuditFilterKey key, const DateEdit *edit);
    void setChoiceFilter(AuditFilterKey key, QComboBox *combo, int index);
    void setListFilter(AuditFilterKey key, SelectionPopup *list);
    void setTextFilter(AuditFilterKey key, QPointer<QLineEdit> &pending);
    void startFilterTimer(QPointer<QLineEdit> &pending, const char *filterSlot);
    void setFilter(AuditFilterKey key, const QVariant &value);
    void refreshResults();
    void keepColumnWidths();
    void fitColumns();
    void logSearch(const QString &statement);
    QString serverText() const;

    // Work with the rows
    qint64 countRows();
    void copyAllRows();
    bool collectRows(const QModelIndexList &rows, CsvText::ClipboardLines &lines) const;
    void tellReadingFailure(const QString &cause);
    void tellTooManyRows();
    void logExport(const QString &file, qint64 rows, const QString &statement);

    // Connection
    void loadConnectionOptions();
    void storeConnectionOptions();
    bool isOnline() const;
    /// Asks until there is something to connect to. \return  false when the person gave up
    bool completeConnectionOptions();
    ZephanError connectOnline();
    ZephanError connectOffline();
    void setConnected(bool isConnected);
    void releaseDatabase();
    void forgetDatabase();
    void removeOnlineConnection();
    void clearLostRows();
    bool wantsToEditConnection(ZephanError error);

    QString m_dataPath;
    std::unique_ptr<QSettings> m_localCache;
    QSqlDatabase m_database;
    bool m_connected = false;
    bool m_borrowed = false;  ///< somebody else's connection, which stays when this view disconnects
    QVariantMap m_onlineOptions;
    QVariantMap m_offlineOptions;
    AuditFilterMap m_filters;
    AuditSortOrder m_sort{0, Qt::AscendingOrder};
    QPointer<QLineEdit> m_pendingOperator;
    QPointer<QLineEdit> m_pendingHost;
    QPointer<QLineEdit> m_pendingId;

    QVBoxLayout *m_layout;
    QLabel *m_filterByLabel;
    QWidget *m_filterPanel;
    QTableView *m_table;
    QToolButton *m_connectButton;
    QAction *m_optionsAction;
    QAction *m_disconnectAction;
    QAction *m_copyRowsAction;
    QAction *m_copyCellAction;
    QAction *m_saveAction;
    QAction *m_chartAction;
    AuditTrailQueryModel *m_model = nullptr;
    bool m_allSelected = false;   ///< before rows are fetched
    QVector<int> m_columnWidths;  ///< of the last result; empty until there was one with rows

    // Made anew with the filter panel.
    DateEdit *m_fromEdit = nullptr;
    DateEdit *m_toEdit = nullptr;
    QComboBox *m_typeCombo = nullptr;
    QComboBox *m_categoryCombo = nullptr;
    QPushButton *m_actionButton = nullptr;
    QPushButton *m_levelButton = nullptr;
    SelectionPopup *m_actionList = nullptr;
    SelectionPopup *m_levelList = nullptr;
};

#endif
