// A database that a test exports to.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "export/linux/database_reader.h"
#include "export/sqlite_export.h"
#include "export/tables_fixture.h"
#include "report/record_fields.h"
#include "report/record_makers.h"
#include "report/records.h"
#include "support/temp_folder.h"

namespace tradebill {

class DatabaseFixture : public TablesFixture {
protected:
    DatabaseResult Save(const std::string& account = "1", int wait = 0) const {
        return SaveToDatabase(path_, {.user = "demo", .account = account}, Source(), wait);
    }
    void AddTrade(std::string_view contract, std::string_view day = "20240102") {
        FillFields<MatchRecord>(report.MatchStore.Add(), kMatchFields,
                                {{"BILL_DATE", day}, {"CONTRACT", contract}, {"MATCH_PRICE", "3820.50"}});
    }
    void AddTrades(int count, std::string_view contract) {
        for (int i = 0; i < count; ++i) AddTrade(contract);
    }
    [[nodiscard]] std::string Read(const std::string& sql) const { return CDatabaseReader(path_).Read(sql); }
    /// What lies in the database's folder.
    [[nodiscard]] std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }

    CTempFolder folder_;
    std::string path_ = folder_.Path("out.db");
};

}  // namespace tradebill
