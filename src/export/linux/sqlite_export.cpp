#include "export/sqlite_export.h"

#include <sqlite3.h>

#include <cstdint>
#include <functional>
#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "export/linux/sqlite_database.h"
#include "export/linux/sqlite_schema.h"
#include "export/row_values.h"
#include "export/table.h"
#include "export/table_list.h"
#include "platform/file.h"
#include "platform/paths.h"
#include "platform/system_error.h"
#include "report/account_key.h"

namespace tradebill {
namespace {

/// Puts rows of a table into a database.
class CTableInsertion final : public CRowSink {
public:
    /// REQUIRES: all of them outlive this.
    CTableInsertion(CSqliteDatabase& database, const ExportTable& table, const AccountKey& account)
        : statement_(database, InsertionInto(table)) {
        BindAccount(statement_, account);
    }

    void OnRow(std::span<const ExportCell> cells) override {
        parameter_ = std::size(kAccountColumns);
        for (const CellValue& value : values_.Of(cells)) {
            ++parameter_;
            std::visit([this](const auto& content) { Bind(content); }, value);
        }
        statement_.Step();
    }

private:
    void Bind(std::monostate) { statement_.BindNull(parameter_); }
    void Bind(std::string_view text) { statement_.Bind(parameter_, text); }
    void Bind(double number) { statement_.Bind(parameter_, number); }
    void Bind(std::int64_t count) { statement_.Bind(parameter_, count); }

    CSqliteStatement statement_;
    CRowValues values_;
    int parameter_ = 0;
};

/// What SQLite refuses, in words.
DatabaseResult ResultOf(const std::function<DatabaseResult()>& work) {
    try {
        return work();
    } catch (const CSqliteError& error) {
        switch (error.Code()) {
            case SQLITE_BUSY:
            case SQLITE_LOCKED:
                return {DatabaseEnd::Taken, "another program is using it"};
            case SQLITE_NOTADB:
                return {DatabaseEnd::Refused, "it is no SQLite database"};
            default:
                return {DatabaseEnd::Failed, error.what()};
        }
    }
}

/// The journal of a transaction lies beside the database and is gone behind it: the file alone is all there is to send.
/// Triggers and views of others may call nothing that reaches outside.
void SetUp(CSqliteDatabase& database) {
    constexpr int kCacheKilobytes = 65536;
    database.Run("PRAGMA trusted_schema = OFF");
    if (database.TextOf("PRAGMA journal_mode = DELETE") != "delete") {
        throw CSqliteError(SQLITE_BUSY, "the journal can't be changed");
    }
    database.Run("PRAGMA synchronous = EXTRA");
    database.Run("PRAGMA cache_size = -" + std::to_string(kCacheKilobytes));
}

DatabaseResult Replace(CSqliteDatabase& database, const AccountKey& account, const ExportSource& source) {
    SetUp(database);
    database.Run("BEGIN EXCLUSIVE");
    if (auto reason = WhyRefused(database)) return {DatabaseEnd::Refused, *std::move(reason)};
    PrepareTables(database);
    DeleteRows(database, account);
    for (const ExportTable& table : Tables()) {
        CTableInsertion insertion(database, table, account);
        table.walk(source, insertion);
    }
    database.Run("COMMIT");
    if (database.HasMoved()) return {DatabaseEnd::Failed, "somebody moved or removed it meanwhile"};
    return {};
}

void Attach(CSqliteDatabase& database, const std::string& path, const std::string& name) {
    CSqliteStatement statement(database, "ATTACH ? AS " + name);
    statement.Bind(1, path);
    statement.Step();
}

DatabaseResult Join(CSqliteDatabase& database, const std::string& from) {
    const std::string kFrom = "joined";
    SetUp(database);
    Attach(database, from, kFrom);
    database.Run("BEGIN EXCLUSIVE");
    if (auto reason = WhyRefused(database)) return {DatabaseEnd::Refused, *std::move(reason)};
    PrepareTables(database);
    for (const std::string& table : OwnTables(database)) database.Run(DeletionOfAccountsIn(kFrom, table));
    for (const ExportTable& table : Tables()) database.Run(CopyFrom(kFrom, table));
    database.Run("COMMIT");
    if (database.HasMoved()) return {DatabaseEnd::Failed, "somebody moved or removed it meanwhile"};
    return {};
}

/// Takes away a database that this run has made, if nothing came to be in it, with a journal of that. Another program
/// that has it open by then finds that it is gone.
class CEmptyRemoval {
public:
    explicit CEmptyRemoval(const std::string& path)
        : path_(path), journal_(path + "-journal"), isNew_(!StampOf(path)) {}
    ~CEmptyRemoval() {
        if (!isNew_) return;
        const auto stamp = StampOf(path_);
        if (!stamp || stamp->size != 0) return;
        RemoveFile(journal_);
        RemoveFile(path_);
    }
    /// Whether there was none, and there is none yet.
    [[nodiscard]] bool IsMissing() const { return isNew_ && !StampOf(path_); }
    /// Another program is at work on it.
    void LeaveIt() { isNew_ = false; }
    CEmptyRemoval(const CEmptyRemoval&) = delete;
    CEmptyRemoval& operator=(const CEmptyRemoval&) = delete;

private:
    const std::string& path_;
    std::string journal_;  // put together before memory can be short
    bool isNew_;
};

/// Why no file can be made there; empty if one can, which is there then, or if there is one that couldn't be looked at.
/// SQLite itself goes on to look for a file to read, and only tells that there is none.
std::string WhyNotMade(const std::string& path) {
    ForgetSystemError();
    const CFile file(path, FileMode::CreateNew);
    return file.IsOpen() || MeansThere(LastSystemError()) ? std::string() : SystemErrorText(LastSystemError());
}

/// A transaction whose end failed may have left its journal: whoever opens the database next takes its way back.
void TakeWayBack(const std::string& path) {
    try {
        CSqliteDatabase database(path, DatabaseOpening::MustBeThere, 0);
        static_cast<void>(database.TextOf("SELECT count(*) FROM sqlite_master"));
    } catch (const CSqliteError&) {
        return;  // then the next run does
    }
}

/// Opens or makes the database, and has `change` change it.
DatabaseResult Changed(const std::string& path, int wait,
                       const std::function<DatabaseResult(CSqliteDatabase&)>& change) {
    CEmptyRemoval removal(path);
    DatabaseResult result = ResultOf([&] {
        CSqliteDatabase database(path, DatabaseOpening::MadeIfMissing, wait);
        return change(database);
    });
    if (result.end == DatabaseEnd::Failed) TakeWayBack(path);
    if (result.end == DatabaseEnd::Failed && removal.IsMissing()) {
        if (std::string reason = WhyNotMade(path); !reason.empty()) result.reason = std::move(reason);
    }
    if (result.end == DatabaseEnd::Taken) removal.LeaveIt();
    return result;
}

}  // namespace

bool HasSqlite() {
    return true;
}

DatabaseResult LookAtDatabase(const std::string& path) {
    const auto stamp = StampOf(path);
    if (!stamp || stamp->size == 0) return {};
    return ResultOf([&]() -> DatabaseResult {
        CSqliteDatabase database(AbsolutePath(path), DatabaseOpening::MustBeThere, 0);
        if (auto reason = WhyRefused(database)) return {DatabaseEnd::Refused, *std::move(reason)};
        return {};
    });
}

DatabaseResult SaveToDatabase(const std::string& path, const AccountKey& account, const ExportSource& source,
                              int wait) {
    return Changed(path, wait, [&](CSqliteDatabase& database) { return Replace(database, account, source); });
}

bool HasAccount(const std::string& path, const AccountKey& account) {
    bool hasRows = false;
    const DatabaseResult result = ResultOf([&]() -> DatabaseResult {
        CSqliteDatabase database(path, DatabaseOpening::MustBeThere, 0);
        if (WhyRefused(database)) return {};
        CSqliteStatement statement(database, SelectionOfAccount());
        BindAccount(statement, account);
        hasRows = statement.Step();
        return {};
    });
    return result.end == DatabaseEnd::Done && hasRows;
}

DatabaseResult JoinDatabase(const std::string& path, const std::string& from, int wait) {
    DatabaseResult look = LookAtDatabase(from);
    if (look.end != DatabaseEnd::Done) return look;
    return Changed(path, wait, [&](CSqliteDatabase& database) { return Join(database, from); });
}

}  // namespace tradebill
