#include "export/linux/sqlite_schema.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "export/linux/sqlite_database.h"
#include "export/table.h"
#include "export/table_list.h"
#include "report/account_key.h"

namespace tradebill {
namespace {

constexpr std::string_view kProgram = "tradebill";
constexpr std::string_view kTableOfAll = "figures";  // each account has rows there
constexpr std::string_view kOfAccount = R"( WHERE "user" = ? AND "account" = ? AND "kind" = ?)";

/// A name as SQL takes it whatever it is: "index" and "return" are words of its own.
std::string Name(std::string_view name) {
    return "\"" + std::string(name) + "\"";
}

std::string_view TypeOf(ColumnKind kind) {
    switch (kind) {
        case ColumnKind::Number:
            return "REAL";
        case ColumnKind::Count:
            return "INTEGER";
        case ColumnKind::Text:
        case ColumnKind::Day:
            break;
    }
    return "TEXT";
}

std::string Declared(const ExportColumn& column) {
    return Name(column.name) + " " + std::string(TypeOf(column.kind));
}

/// The account's columns and those of the key, in order.
std::string KeyList(const ExportTable& table) {
    std::string list;
    for (const std::string_view column : kAccountColumns) list += (list.empty() ? "" : ", ") + Name(column);
    for (const ExportColumn& column : table.columns) {
        if (column.isKey) list += ", " + Name(column.name);
    }
    return list;
}

std::string ColumnList(const ExportTable& table) {
    std::string list;
    for (const std::string_view column : kAccountColumns) list += (list.empty() ? "" : ", ") + Name(column);
    for (const ExportColumn& column : table.columns) list += ", " + Name(column.name);
    return list;
}

std::string CreationOf(const ExportTable& table) {
    std::string sql = "CREATE TABLE IF NOT EXISTS " + Name(table.name) + " (";
    for (const std::string_view column : kAccountColumns) sql += Name(column) + " TEXT NOT NULL, ";
    for (const ExportColumn& column : table.columns) sql += Declared(column) + ", ";
    if (table.isUnique) return sql + "PRIMARY KEY (" + KeyList(table) + "))";
    sql.erase(sql.size() - 2);
    return sql + ")";
}

std::string IndexOf(const ExportTable& table) {
    return "CREATE INDEX IF NOT EXISTS " + Name(std::string(table.name) + "_key") + " ON " + Name(table.name) + " (" +
           KeyList(table) + ")";
}

std::vector<std::string> TextsOf(CSqliteDatabase& database, const std::string& sql) {
    std::vector<std::string> texts;
    CSqliteStatement statement(database, sql);
    while (statement.Step()) texts.emplace_back(statement.Text(0));
    return texts;
}

std::vector<std::string> ColumnsIn(CSqliteDatabase& database, std::string_view table) {
    return TextsOf(database, "SELECT name FROM pragma_table_info('" + std::string(table) + "')");
}

bool IsIn(const std::vector<std::string>& texts, std::string_view text) {
    return std::ranges::find(texts, text) != texts.end();
}

/// Those of a program that knew less.
void AddMissingColumns(CSqliteDatabase& database, const ExportTable& table) {
    const std::vector<std::string> there = ColumnsIn(database, table.name);
    for (const ExportColumn& column : table.columns) {
        if (IsIn(there, column.name)) continue;
        database.Run("ALTER TABLE " + Name(table.name) + " ADD COLUMN " + Declared(column));
    }
}

void SetMeta(CSqliteDatabase& database, std::string_view name, std::string_view value) {
    CSqliteStatement statement(database, "INSERT OR REPLACE INTO meta (name, value) VALUES (?, ?)");
    statement.Bind(1, name);
    statement.Bind(2, value);
    statement.Step();
}

std::string MetaOf(CSqliteDatabase& database, const std::string& name) {
    return database.TextOf("SELECT value FROM meta WHERE name = '" + name + "'");
}

/// A table is ours if meta says so: somebody may keep others in the same database.
constexpr std::string_view kTablePrefix = "table ";

}  // namespace

std::optional<std::string> WhyRefused(CSqliteDatabase& database) {
    const std::string tables = database.TextOf("SELECT count(*) FROM sqlite_master");
    if (tables == "0") return std::nullopt;
    const std::vector<std::string> columns = ColumnsIn(database, "meta");
    if (!IsIn(columns, "name") || !IsIn(columns, "value") || MetaOf(database, "program") != kProgram) {
        return "it is a database of something else";
    }
    const std::string schema = MetaOf(database, "schema");
    if (schema == std::to_string(kTableSchema)) return std::nullopt;
    return "its tables are of schema " + (schema.empty() ? "none" : schema) + ", this program writes schema " +
           std::to_string(kTableSchema) + ": export into a new file";
}

void PrepareTables(CSqliteDatabase& database) {
    database.Run("CREATE TABLE IF NOT EXISTS meta (name TEXT PRIMARY KEY, value TEXT)");
    SetMeta(database, "program", kProgram);
    SetMeta(database, "schema", std::to_string(kTableSchema));
    for (const ExportTable& table : Tables()) {
        database.Run(CreationOf(table));
        AddMissingColumns(database, table);
        if (!table.isUnique) database.Run(IndexOf(table));
        SetMeta(database, std::string(kTablePrefix) + std::string(table.name), table.name);
    }
}

void BindAccount(CSqliteStatement& statement, const AccountKey& account) {
    statement.Bind(1, account.user);
    statement.Bind(2, account.account);
    statement.Bind(3, KindName(account.isForeign));
}

void DeleteRows(CSqliteDatabase& database, const AccountKey& account) {
    for (const std::string& table : OwnTables(database)) {
        CSqliteStatement statement(database, "DELETE FROM " + Name(table) + std::string(kOfAccount));
        BindAccount(statement, account);
        statement.Step();
    }
}

std::vector<std::string> OwnTables(CSqliteDatabase& database) {
    return TextsOf(database, "SELECT value FROM meta WHERE name LIKE '" + std::string(kTablePrefix) +
                                 "%' AND value IN (SELECT name FROM sqlite_master WHERE type = 'table')");
}

std::string InsertionInto(const ExportTable& table) {
    std::string values;
    for (std::size_t i = 0; i < std::size(kAccountColumns) + table.columns.size(); ++i) values += i == 0 ? "?" : ", ?";
    return "INSERT INTO " + Name(table.name) + " (" + ColumnList(table) + ") VALUES (" + values + ")";
}

std::string SelectionOfAccount() {
    return std::string("SELECT 1 FROM ").append(kTableOfAll).append(kOfAccount).append(" LIMIT 1");
}

std::string DeletionOfAccountsIn(std::string_view from, std::string_view table) {
    constexpr std::string_view kKey = R"("user", "account", "kind")";
    return std::string("DELETE FROM main.")
        .append(Name(table))
        .append(" WHERE (")
        .append(kKey)
        .append(") IN (SELECT ")
        .append(kKey)
        .append(" FROM ")
        .append(from)
        .append(".")
        .append(kTableOfAll)
        .append(")");
}

std::string CopyFrom(std::string_view from, const ExportTable& table) {
    const std::string columns = ColumnList(table);
    return std::string("INSERT INTO main.")
        .append(Name(table.name))
        .append(" (")
        .append(columns)
        .append(") SELECT ")
        .append(columns)
        .append(" FROM ")
        .append(from)
        .append(".")
        .append(Name(table.name));
}

}  // namespace tradebill
