// SQLite's own functions, with owners and exceptions.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tradebill {

/// What SQLite refused; what() is in its words.
class CSqliteError : public std::runtime_error {
public:
    CSqliteError(int code, const std::string& words) : std::runtime_error(words), code_(code) {}

    /// SQLite's primary code: SQLITE_BUSY.
    [[nodiscard]] int Code() const { return code_; }

private:
    int code_;
};

enum class DatabaseOpening { MustBeThere, MadeIfMissing };

/// An open database. All functions throw CSqliteError, or std::bad_alloc where memory is short.
class CSqliteDatabase {
public:
    /// Waits up to `wait` seconds for other programs, whenever they are in the way.
    /// REQUIRES: `path` is absolute: others may mean something to SQLite.
    CSqliteDatabase(const std::string& path, DatabaseOpening opening, int wait);

    void Run(const std::string& sql);
    /// The first value of the first row of what `sql` gives; empty without one.
    [[nodiscard]] std::string TextOf(const std::string& sql);

    /// Whether the file that is open is no more the one at its path.
    [[nodiscard]] bool HasMoved();

    [[nodiscard]] sqlite3* Handle() const { return handle_.get(); }
    /// Throws for a result of SQLite that is none of success.
    void Check(int result) const;

private:
    struct Close {
        void operator()(sqlite3* handle) const { ::sqlite3_close_v2(handle); }
    };
    std::unique_ptr<sqlite3, Close> handle_;
};

/// A statement of a database, which outlives it. Parameters count from 1, and keep their values from row to row.
class CSqliteStatement {
public:
    CSqliteStatement(CSqliteDatabase& database, const std::string& sql);

    void Bind(int parameter, std::string_view text);  ///< REQUIRES: the text stays until the statement has run
    void Bind(int parameter, double number);
    void Bind(int parameter, std::int64_t count);
    void BindNull(int parameter);

    /// Runs up to the next row. False if there is none; then it can be run again.
    bool Step();
    /// A column of the row, from 0. Valid until the next step.
    [[nodiscard]] std::string_view Text(int column) const;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { ::sqlite3_finalize(statement); }
    };
    CSqliteDatabase& database_;
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

}  // namespace tradebill
