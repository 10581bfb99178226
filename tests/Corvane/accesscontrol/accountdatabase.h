#ifndef TESTS_ACCOUNTDATABASE_H
#define TESTS_ACCOUNTDATABASE_H

#include <QStringList>

#include <functional>

/// The account database that this test program lists accounts of, in place of the computer's own.
namespace AccountDatabase {

void setUsers(const QStringList &names);
void setGroups(const QStringList &names);
/// `count` names, account1 and so on.
QStringList numbered(int count);
/// Runs each time that a listing begins, while the program waits for it.
void whenListed(std::function<void()> action);

}  // namespace AccountDatabase

#endif
