#include "Corvane/accesscontrol/accessrights.h"

#include "CommunicationAndData/access/accesstype.h"

#include <QCoreApplication>

namespace {

constexpr int kHeading = NoAccess;

struct Label
{
    int mask;
    const char *text;
};

const Label kLabels[] = {
    {kHeading, QT_TRANSLATE_NOOP("AccessRights", "Settings")},
    {DistributeSettings, QT_TRANSLATE_NOOP("AccessRights", "Distribute settings")},
    {DownloadSettings, QT_TRANSLATE_NOOP("AccessRights", "Download settings")},
    {WriteLocalDbSettings, QT_TRANSLATE_NOOP("AccessRights", "Write local DB settings")},
    {kHeading, QT_TRANSLATE_NOOP("AccessRights", "Audit Trail and Access Control")},
    {AccessControlManagement, QT_TRANSLATE_NOOP("AccessRights", "Access control management")},
    {AuditTrailManagement, QT_TRANSLATE_NOOP("AccessRights", "Audit trail management")},
    {kHeading, QT_TRANSLATE_NOOP("AccessRights", "Person Access")},
    {ReadPerson, QT_TRANSLATE_NOOP("AccessRights", "Read person")},
    {ModifyPerson, QT_TRANSLATE_NOOP("AccessRights", "Modify person")},
    {CreatePerson, QT_TRANSLATE_NOOP("AccessRights", "Create person")},
    {DeletePerson, QT_TRANSLATE_NOOP("AccessRights", "Delete person")},
    {kHeading, QT_TRANSLATE_NOOP("AccessRights", "Study Access")},
    {ReadStudy, QT_TRANSLATE_NOOP("AccessRights", "Read study")},
    {ModifyStudy, QT_TRANSLATE_NOOP("AccessRights", "Modify study")},
    {CreateStudy, QT_TRANSLATE_NOOP("AccessRights", "Create study")},
    {DeleteStudy, QT_TRANSLATE_NOOP("AccessRights", "Delete study")},
    {kHeading, QT_TRANSLATE_NOOP("AccessRights", "Transfer")},
    {ImportData, QT_TRANSLATE_NOOP("AccessRights", "Import")},
    {ExportData, QT_TRANSLATE_NOOP("AccessRights", "Export")},
};

struct Dependency
{
    int right;
    int needed;    ///< given along with the right
    int lostWith;  ///< taken along with the right
};

constexpr int kPersonRights = ReadPerson | CreatePerson | ModifyPerson;
constexpr int kStudyRights = ReadStudy | CreateStudy | ModifyStudy;

constexpr Dependency kDependencies[] = {
    {DistributeSettings, DownloadSettings, NoAccess},
    {DownloadSettings, NoAccess, DistributeSettings},
    {ReadPerson, NoAccess, CreatePerson | ModifyPerson | DeletePerson | ImportData | ExportData},
    {CreatePerson, ReadPerson | ModifyPerson, DeletePerson | ImportData},
    {ModifyPerson, ReadPerson, CreatePerson | DeletePerson | ImportData},
    {DeletePerson, kPersonRights | kStudyRights | DeleteStudy, NoAccess},
    {ReadStudy, NoAccess, DeletePerson | CreateStudy | ModifyStudy | DeleteStudy | ImportData | ExportData},
    {CreateStudy, ReadStudy | ModifyStudy, DeletePerson | DeleteStudy | ImportData},
    {ModifyStudy, ReadStudy, DeletePerson | CreateStudy | DeleteStudy | ImportData},
    {DeleteStudy, kStudyRights, DeletePerson},
    {ImportData, kPersonRights | kStudyRights, NoAccess},
    {ExportData, ReadPerson | ReadStudy, NoAccess},
};

}  // namespace

QList<QPair<int, QString>> accessRightRows()
{
    QList<QPair<int, QString>> rows;
    for (const Label &label : kLabels)
        rows.append({label.mask, QCoreApplication::translate("AccessRights", label.text)});
    return rows;
}

int dependentRights(int right, bool checked)
{
    for (const Dependency &dependency : kDependencies) {
        if (dependency.right == right)
            return checked ? dependency.needed : dependency.lostWith;
    }
    return NoAccess;
}
