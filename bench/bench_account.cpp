#include "bench_account.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "base/text.h"
#include "platform/text_encoding.h"
#include "report/request_copy.h"
#include "statement_maker.h"

namespace tradebill {
namespace {

constexpr std::chrono::year_month_day kFirstDay{std::chrono::year{2004}, std::chrono::January, std::chrono::day{5}};

void WriteUnits(const std::string& path) {
    std::ofstream units(path, std::ios::binary);
    units << "[UNITS]\n";
    for (const MadeProduct& product : MadeProducts()) units << GbkToUtf8(product.name) << "=" << product.unit << "\n";
}

}  // namespace

std::string BenchAccount::BillFolder() const {
    return root + "/Users/" + std::string(kBenchUser) + "/Data/Bill";
}

std::string BenchAccount::StatementPath(const std::string& day) const {
    return BillFolder() + "/D" + std::string(kBenchAccount) + "." + day + "o.txt";
}

std::vector<std::string> BusinessDays(int count) {
    std::vector<std::string> days;
    for (std::chrono::sys_days day = kFirstDay; static_cast<int>(days.size()) < count; day += std::chrono::days(1)) {
        const std::chrono::weekday weekday(day);
        if (weekday == std::chrono::Saturday || weekday == std::chrono::Sunday) continue;
        const std::chrono::year_month_day date(day);
        char text[32];
        std::snprintf(text, sizeof text, "%04d%02u%02u", static_cast<int>(date.year()),
                      static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
        days.emplace_back(text);
    }
    return days;
}

BenchAccount MakeBenchAccount(const std::string& root, int days, TradingShape shape) {
    BenchAccount account{root, BusinessDays(days)};
    std::filesystem::create_directories(account.BillFolder());
    WriteUnits(root + "/units.ini");
    CStatementMaker maker(shape);
    for (const std::string& day : account.days) {
        const std::string text = maker.Next(day);
        std::ofstream(account.StatementPath(day), std::ios::binary) << text;
        account.bytes += text.size();
    }
    return account;
}

GenerateBillRequest RequestFor(const BenchAccount& account, std::size_t count) {
    GenerateBillRequest request = ClearedRequest();
    request.StatementFormat = 1;
    request.StatementKind = 1;
    CopyField(request.StartDate, Dashed(account.days.front()));
    CopyField(request.EndDate, Dashed(account.days[std::min(count, account.days.size()) - 1]));
    CopyField(request.Account, kBenchAccount);
    CopyField(request.UserFolder, kBenchUser);
    return request;
}

std::vector<std::string> ReportCommand(const std::string& program, const BenchAccount& account) {
    return {program,     "report",
            "--root",    account.root,
            "--user",    std::string(kBenchUser),
            "--account", std::string(kBenchAccount),
            "--from",    Dashed(account.days.front()),
            "--to",      Dashed(account.days.back()),
            "--format",  "1",
            "--units",   account.root + "/units.ini",
            "--quiet"};
}

std::string Dashed(const std::string& day) {
    return day.substr(0, 4) + "-" + day.substr(4, 2) + "-" + day.substr(6);
}

}  // namespace tradebill
