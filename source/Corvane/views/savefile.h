#ifndef SAVEFILE_H
#define SAVEFILE_H

#include <QCoreApplication>
#include <QString>

class QWidget;

/// What saving anything to a file has in common.
class SaveFile
{
    Q_DECLARE_TR_FUNCTIONS(SaveFile)

public:
    /// Asks where to save.
    ///
    /// \param name    proposed name with its ending, in the folder that was chosen last
    /// \param filter  as "CSV (*.csv)"
    /// \return        path in native form, with the proposed name's ending where none was typed; empty when
    ///                the person gave up
    static QString choose(QWidget *parent, const QString &caption, const QString &name,
                          const QString &filter);

    /// Tells that a file was not saved, and why. What was in its place before is still there.
    static void tellFailure(QWidget *parent, const QString &file, const QString &cause);
};

#endif
