// All tables in an SQLite database: one for many accounts, and an account's rows replaced as a whole.
#pragma once

#include <string>

#include "export/table.h"
#include "report/account_key.h"

namespace tradebill {

/// Whether the program was built with SQLite.
[[nodiscard]] bool HasSqlite();

enum class DatabaseEnd {
    Done,
    Refused,  ///< the file holds something else, or tables of another schema
    Taken,    ///< another program uses the database
    Failed,
};

struct DatabaseResult {
    DatabaseEnd end = DatabaseEnd::Done;
    std::string reason = {};  ///< in words, UTF-8
};

/// Whether SaveToDatabase would take the file at `path`, which needn't be there. Nothing is written.
///
/// REQUIRES: HasSqlite().
[[nodiscard]] DatabaseResult LookAtDatabase(const std::string& path);

/// Puts the tables of `source` in the place of all rows that the database at `path` has of this account, in one
/// transaction: whatever ends the program, the database is as it was before, or holds all of it, on the disk itself. A
/// journal that is left beside it is the way back, which the next program to open the database takes. Another program
/// is waited for, for at most `wait` seconds. A database that isn't there is made.
///
/// Tables and columns that another program of the same schema has made stay; its rows of this account go, wherever
/// they are.
///
/// REQUIRES: HasSqlite(), `path` is absolute, and `account` is in UTF-8.
[[nodiscard]] DatabaseResult SaveToDatabase(const std::string& path, const AccountKey& account,
                                            const ExportSource& source, int wait);

/// Whether the database at `path` is there and has rows of this account.
///
/// REQUIRES: HasSqlite(), `path` is absolute, and `account` is in UTF-8.
[[nodiscard]] bool HasAccount(const std::string& path, const AccountKey& account);

/// Puts all rows of the database `from` in the place of those that the database at `path` has of the same accounts, as
/// SaveToDatabase does for one. `from` stays as it is.
///
/// REQUIRES: HasSqlite(), and both paths are absolute.
[[nodiscard]] DatabaseResult JoinDatabase(const std::string& path, const std::string& from, int wait);

}  // namespace tradebill
