// Debian has no SQLite for the cross compiler.
#include "export/sqlite_export.h"

#include <string>

#include "report/account_key.h"

namespace tradebill {

bool HasSqlite() {
    return false;
}

DatabaseResult LookAtDatabase(const std::string&) {
    return {DatabaseEnd::Failed, "this program is built without SQLite"};
}

DatabaseResult SaveToDatabase(const std::string&, const AccountKey&, const ExportSource&, int) {
    return {DatabaseEnd::Failed, "this program is built without SQLite"};
}

bool HasAccount(const std::string&, const AccountKey&) {
    return false;
}

DatabaseResult JoinDatabase(const std::string&, const std::string&, int) {
    return {DatabaseEnd::Failed, "this program is built without SQLite"};
}

}  // namespace tradebill
