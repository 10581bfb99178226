#include "ZephanShared/toolkit/filecommit.h"

#include <QSaveFile>

bool commitWhole(QSaveFile &file)
{
    return file.flush() && file.commit();
}
