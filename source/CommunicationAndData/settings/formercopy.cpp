#include "CommunicationAndData/settings/formercopy.h"

#include "CommunicationAndData/settings/keptfile.h"

#include <QFile>
#include <QFileInfo>
#include <QUuid>

namespace {

constexpr int kNameSize = 8;

}  // namespace

FormerCopy::FormerCopy(const QString &path)
    : m_path(path)
    , m_existed(QFileInfo::exists(path))
{
    if (!m_existed)
        return;
    m_file = QFileInfo(path).canonicalFilePath();
    const QString name = QStringLiteral("%1.%2.former")
                             .arg(m_file, QUuid::createUuid().toString(QUuid::Id128).left(kNameSize));
    if (duplicateFile(m_file, name))
        m_copy = name;
}

FormerCopy::~FormerCopy()
{
    if (!m_copy.isEmpty())
        QFile::remove(m_copy);
}

void FormerCopy::putBack()
{
    if (!m_copy.isEmpty())
        replaceByFile(m_copy, m_file);
    else if (!m_existed && QFileInfo::exists(m_path))
        QFile::remove(QFileInfo(m_path).canonicalFilePath());
}
