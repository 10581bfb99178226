#ifndef DIFFVIEW_H
#define DIFFVIEW_H

#include <QDialog>
#include <QStringList>

class QGridLayout;
class QHBoxLayout;
class QLabel;
class QPlainTextEdit;
class QPushButton;

/// Shows the lines that differ between settings snapshots, side by side: the present settings against the
/// source loaded last or, on request, against the first one. As a confirmation of a load it has a Cancel.
///
/// Values that are marked as encrypted show as "*****".
class DiffView : public QDialog
{
    Q_OBJECT

public:
    /// Shows the dialog until it is closed.
    ///
    /// \param initial     snapshot of the first source; the comparison when there is no previous one
    /// \param previous    snapshot of the last source; may be empty
    /// \param current     snapshot to compare with
    /// \param tag         name of the last source
    /// \param hideToggle  only one comparison can be seen
    /// \param withCancel  the dialog asks
    /// \return            whether "OK" was pressed
    static bool showDiff(const QStringList &initial, const QStringList &previous, const QStringList &current,
                         QString tag, bool hideToggle, bool withCancel);

public slots:
    /// Switches between the comparison with the previous and with the initial settings.
    void toggleLocal();
    /// Leaves in each list, sorted and without duplicates, the lines that the other does not have.
    void diffSettingsLists(QStringList &first, QStringList &second);
    /// Closes the dialog as accepted.
    void doClose();

private:
    DiffView(const QStringList &initial, const QStringList &previous, const QStringList &current, QString tag,
             bool hideToggle, bool withCancel);

    void buildUi(bool withCancel);
    QPlainTextEdit *makePane(const QString &name);
    void updateTexts();
    void nameLeftPane(const QString &name);
    void showLines(const QStringList &left, const QStringList &right);
    void adjustWidths();

    QGridLayout *m_layout;
    QLabel *m_title;
    QLabel *m_rightLabel;
    QLabel *m_leftLabel;
    QPlainTextEdit *m_rightPane;
    QPlainTextEdit *m_leftPane;
    QPushButton *m_toggle;
    QHBoxLayout *m_buttons;
    QPushButton *m_ok;
    QPushButton *m_cancel = nullptr;

    QStringList m_currentLessInitial;
    QStringList m_currentLessPrevious;
    QStringList m_initialLessCurrent;
    QStringList m_previousLessCurrent;
    QString m_tag;
    bool m_showPrevious = true;  ///< the next toggle shows the comparison with the previous settings
    bool m_accepted = false;
};

#endif
