#ifndef ABOUTDIALOG_H
#define ABOUTDIALOG_H

#include <QDialog>
#include <QFont>

class QDialogButtonBox;
class QLabel;
class QTextEdit;
class QVBoxLayout;

/// Tells what the program is: its titles and version, the maker's notice, and the about text from a file.
class AboutDialog : public QDialog
{
    Q_OBJECT

public:
    /// \param version            as it was read from the version file; it is formatted here
    /// \param copyrightFilePath  a file whose first line is the maker's notice; an empty path gives the
    ///                           built-in notice, a file that can't be read none
    /// \param aboutFilePath      UTF-8 text; if it can't be read, one line says so
    AboutDialog(const QString &mainTitle, const QString &subtitle, const QString &version,
                const QString &copyrightFilePath, const QString &aboutFilePath, QWidget *parent);

private:
    QDialogButtonBox *createButtons();
    void appendTitles(const QString &mainTitle, const QString &subtitle, const QString &version);
    void appendNotice(const QString &copyrightFilePath);
    void appendAboutText(const QString &aboutFilePath);
    void appendLine(const QString &text, const QFont &font, const QColor &color, Qt::Alignment alignment);

    QVBoxLayout *m_layout;
    QLabel *m_title;
    QTextEdit *m_text;
    QFont m_titleFont;
    QFont m_subtitleFont;
    QFont m_noticeFont;
    QFont m_aboutFont;
};

#endif
