#ifndef FORMERCOPY_H
#define FORMERCOPY_H

#include <QString>

/// What a settings file was before it is written, kept beside it for as long as this object lives.
///
/// On a disk that has no room for all of it, `QSettings` replaces a whole file by a part of one and takes
/// that for success. A process that is killed at this moment leaves the copy behind, as
/// "corvane.ini.0f1e2d3c.former", for the next one that opens the file.
class FormerCopy
{
public:
    explicit FormerCopy(const QString &path);
    ~FormerCopy();
    Q_DISABLE_COPY(FormerCopy)

    /// Puts the former file back in one step; where there was none, there is none again. It can be done once.
    ///
    /// \return  false if that is not possible; a copy stays then for the next one that opens the file
    bool putBack();

    /// What the opening of a file does about copies that a killed process has left: puts the newest one in
    /// the place of a file that is empty or ends within a line, which is kept, and removes the others. That
    /// leaves a warning in the run-time log.
    static void recover(const QString &path);

private:
    const QString m_path;
    const bool m_existed;
    QString m_file;  ///< where a link leads to
    QString m_copy;  ///< empty if there is none
};

#endif
