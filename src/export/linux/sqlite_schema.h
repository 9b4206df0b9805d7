// What tables a database of ours has, and whether a database is one.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "export/table.h"

namespace tradebill {

class CSqliteDatabase;
class CSqliteStatement;
struct AccountKey;

/// The columns that stand before those of every table.
inline constexpr std::string_view kAccountColumns[] = {"user", "account", "kind"};

/// Why nothing of ours may be written to the database, in words; nothing if it may, as to an empty one.
[[nodiscard]] std::optional<std::string> WhyRefused(CSqliteDatabase& database);

/// Makes the tables, columns and indexes that are missing.
///
/// REQUIRES: a transaction is open, and WhyRefused has nothing to say.
void PrepareTables(CSqliteDatabase& database);

/// Deletes an account's rows in every table of ours, also in those that this program doesn't know.
void DeleteRows(CSqliteDatabase& database, const AccountKey& account);

/// Fills the first parameters of `statement`, which stand for the account's columns.
///
/// REQUIRES: `account` stays until the statement has run.
void BindAccount(CSqliteStatement& statement, const AccountKey& account);

/// "INSERT INTO ... VALUES (?, ...)", the account's columns first.
[[nodiscard]] std::string InsertionInto(const ExportTable& table);

/// A query that finds a row if the account that is bound to it has any.
[[nodiscard]] std::string SelectionOfAccount();

/// Statements that delete the rows of all accounts of the attached database `from`, and copy its rows.
[[nodiscard]] std::string DeletionOfAccountsIn(std::string_view from, std::string_view table);
[[nodiscard]] std::string CopyFrom(std::string_view from, const ExportTable& table);

/// The tables of ours that are there, also those that this program doesn't know.
[[nodiscard]] std::vector<std::string> OwnTables(CSqliteDatabase& database);

}  // namespace tradebill
