// An SQLite database as somebody else opens it.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <memory>
#include <string>

namespace tradebill {

class CDatabaseReader {
public:
    explicit CDatabaseReader(const std::string& path) {
        sqlite3* handle = nullptr;
        EXPECT_EQ(::sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
        handle_.reset(handle);
    }

    void Run(const std::string& sql) const {
        EXPECT_EQ(::sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << ::sqlite3_errmsg(handle_.get());
    }

    /// The values of all rows, each followed by a bar; "-" for nothing.
    [[nodiscard]] std::string Read(const std::string& sql) const {
        std::string found;
        sqlite3_stmt* statement = nullptr;
        EXPECT_EQ(::sqlite3_prepare_v2(handle_.get(), sql.c_str(), -1, &statement, nullptr), SQLITE_OK)
            << ::sqlite3_errmsg(handle_.get());
        while (::sqlite3_step(statement) == SQLITE_ROW) {
            for (int i = 0; i < ::sqlite3_column_count(statement); ++i) {
                const auto* const text = reinterpret_cast<const char*>(::sqlite3_column_text(statement, i));
                found.append(text == nullptr ? "-" : text).append("|");
            }
        }
        ::sqlite3_finalize(statement);
        return found;
    }

private:
    struct Close {
        void operator()(sqlite3* handle) const { ::sqlite3_close(handle); }
    };
    std::unique_ptr<sqlite3, Close> handle_;
};

}  // namespace tradebill
