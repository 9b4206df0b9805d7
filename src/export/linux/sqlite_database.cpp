#include "export/linux/sqlite_database.h"

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <new>
#include <string>
#include <string_view>

#include "platform/system_error.h"

namespace tradebill {
namespace {

constexpr int kPrimaryCode = 0xFF;
constexpr int kMillisecondsPerSecond = 1000;

[[noreturn]] void Throw(int result, sqlite3* handle) {
    const int code = result & kPrimaryCode;
    if (code == SQLITE_NOMEM) throw std::bad_alloc();
    if (handle == nullptr) throw CSqliteError(code, ::sqlite3_errstr(result));
    std::string words = ::sqlite3_errmsg(handle);
    const int error = ::sqlite3_system_errno(handle);
    const bool isOfSystem = code == SQLITE_IOERR || code == SQLITE_CANTOPEN || code == SQLITE_FULL;
    if (isOfSystem && error != 0) words += " (" + SystemErrorText(static_cast<std::uint32_t>(error)) + ")";
    throw CSqliteError(code, words);
}

}  // namespace

CSqliteDatabase::CSqliteDatabase(const std::string& path, DatabaseOpening opening, int wait) {
    constexpr int kFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;  // one thread at a time has it
    const int creation = opening == DatabaseOpening::MadeIfMissing ? SQLITE_OPEN_CREATE : 0;
    sqlite3* handle = nullptr;
    const int result = ::sqlite3_open_v2(path.c_str(), &handle, kFlags | creation, nullptr);
    handle_.reset(handle);
    Check(result);
    Check(::sqlite3_extended_result_codes(handle, 1));
    Check(::sqlite3_busy_timeout(handle, wait * kMillisecondsPerSecond));
}

void CSqliteDatabase::Check(int result) const {
    if (result != SQLITE_OK && result != SQLITE_DONE) Throw(result, handle_.get());
}

void CSqliteDatabase::Run(const std::string& sql) {
    Check(::sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr));
}

std::string CSqliteDatabase::TextOf(const std::string& sql) {
    CSqliteStatement statement(*this, sql);
    return statement.Step() ? std::string(statement.Text(0)) : std::string();
}

bool CSqliteDatabase::HasMoved() {
    int hasMoved = 0;
    Check(::sqlite3_file_control(handle_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved));
    return hasMoved != 0;
}

CSqliteStatement::CSqliteStatement(CSqliteDatabase& database, const std::string& sql) : database_(database) {
    sqlite3_stmt* statement = nullptr;
    const auto size = static_cast<int>(sql.size() + 1);
    database.Check(
        ::sqlite3_prepare_v3(database.Handle(), sql.c_str(), size, SQLITE_PREPARE_PERSISTENT, &statement, nullptr));
    statement_.reset(statement);
}

void CSqliteStatement::Bind(int parameter, std::string_view text) {
    database_.Check(
        ::sqlite3_bind_text64(statement_.get(), parameter, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8));
}

void CSqliteStatement::Bind(int parameter, double number) {
    database_.Check(::sqlite3_bind_double(statement_.get(), parameter, number));
}

void CSqliteStatement::Bind(int parameter, std::int64_t count) {
    database_.Check(::sqlite3_bind_int64(statement_.get(), parameter, count));
}

void CSqliteStatement::BindNull(int parameter) {
    database_.Check(::sqlite3_bind_null(statement_.get(), parameter));
}

bool CSqliteStatement::Step() {
    const int result = ::sqlite3_step(statement_.get());
    if (result == SQLITE_ROW) return true;
    const int end = ::sqlite3_reset(statement_.get());
    database_.Check(result);
    database_.Check(end);
    return false;
}

std::string_view CSqliteStatement::Text(int column) const {
    const unsigned char* const text = ::sqlite3_column_text(statement_.get(), column);
    const auto size = static_cast<std::size_t>(::sqlite3_column_bytes(statement_.get(), column));
    return text == nullptr ? std::string_view() : std::string_view(reinterpret_cast<const char*>(text), size);
}

}  // namespace tradebill
