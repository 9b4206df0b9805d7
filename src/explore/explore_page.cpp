#include "explore/explore_page.h"

#include <cstddef>
#include <cstdint>
#include <ios>
#include <ostream>
#include <span>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "analysis/analysis.h"
#include "explore/data_block.h"
#include "explore/table_columns.h"
#include "export/json_text.h"
#include "export/run_json.h"
#include "export/table.h"
#include "export/table_list.h"
#include "report/account_key.h"
#include "report/report.h"

namespace tradebill {
namespace {

using RowCounts = std::vector<std::pair<std::string_view, std::size_t>>;

/// Each table with rows as a block; the columns of one are in memory at a time.
RowCounts WriteTables(const ExportSource& source, std::ostream& out) {
    RowCounts counts;
    for (const ExportTable& table : Tables()) {
        CTableColumns columns(table.columns);
        table.walk(source, columns);
        counts.emplace_back(table.name, columns.Rows());
        if (columns.Rows() == 0) continue;
        CDataBlock block(out, "0." + std::string(table.name));
        columns.WriteJson([&](std::string_view piece) { block.Add(piece); });
        block.Finish();
    }
    return counts;
}

void WriteReasons(CJsonText& json, const Analysis& analysis) {
    json.Name("reasons");
    json.OpenObject();
    for (const NullReason& null : analysis.reasons) json.NamedText(null.path, null.reason);
    json.CloseObject();
}

void WriteAccount(CJsonText& json, const ExploredAccount& account, const RowCounts& counts) {
    const CReport& report = account.source.report;
    const AccountKey key = AccountOf(report.Request);
    json.OpenObject();
    json.NamedText("name", key.account);
    json.NamedText("user", key.user);
    json.NamedText("account", key.account);
    json.NamedText("kind", KindName(key.isForeign));
    json.Name("isSum");
    json.Truth(false);
    json.Name("run");
    WriteRun(json, report, account.run);
    WriteReasons(json, account.source.analysis);
    json.Name("tables");
    json.OpenObject();
    for (const auto& [name, rows] : counts) {
        json.Name(name);
        json.Number(static_cast<std::int64_t>(rows));
    }
    json.CloseObject();
    json.CloseObject();
}

std::string HeadText(const ExploredAccount& account, const RowCounts& counts) {
    std::ostringstream text;
    {
        CJsonText json(text);
        json.OpenObject();
        json.Name("schema");
        json.Number(kTableSchema);
        json.NamedText("program", "tradebill " TRADEBILL_VERSION);
        json.Name("accounts");
        json.OpenList();
        WriteAccount(json, account, counts);
        json.CloseList();
        json.CloseObject();
    }
    return text.str();
}

}  // namespace

bool WriteExplorePage(std::string_view pageTemplate, const ExploredAccount& account, std::ostream& out) {
    const std::size_t mark = pageTemplate.find(kDataMark);
    if (mark == std::string_view::npos) return false;
    out.write(pageTemplate.data(), static_cast<std::streamsize>(mark));
    const RowCounts counts = WriteTables(account.source, out);
    CDataBlock head(out, "head");
    head.Add(HeadText(account, counts));
    head.Finish();
    std::string_view rest = pageTemplate.substr(mark + kDataMark.size());
    if (rest.starts_with('\n')) rest.remove_prefix(1);
    out.write(rest.data(), static_cast<std::streamsize>(rest.size()));
    return out.good();
}

}  // namespace tradebill
