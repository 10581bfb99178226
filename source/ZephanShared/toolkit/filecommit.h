#ifndef FILECOMMIT_H
#define FILECOMMIT_H

class QSaveFile;

/// Commits a file whose bytes are all on disk. `QSaveFile::commit` alone does not notice that the last part,
/// which is in memory until then, found no room, and would replace a whole file by a part of one.
///
/// \return  false if something could not be written; a file that was there before stays
bool commitWhole(QSaveFile &file);

#endif
