#include "explore/account_head.h"

#include <cstdint>
#include <span>
#include <sstream>
#include <string>

#include "analysis/account_sum.h"
#include "analysis/analysis.h"
#include "explore/explore_page.h"
#include "export/json_text.h"
#include "export/run_json.h"
#include "export/table_list.h"
#include "report/account_key.h"
#include "report/report.h"

namespace tradebill {
namespace {

void WriteKey(CJsonText& json, const AccountKey& key, bool isSum) {
    json.NamedText("user", key.user);
    json.NamedText("account", key.account);
    json.NamedText("kind", KindName(key.isForeign));
    json.Name("isSum");
    json.Truth(isSum);
}

void WriteReasons(CJsonText& json, const Analysis& analysis) {
    json.Name("reasons");
    json.OpenObject();
    for (const NullReason& null : analysis.reasons) json.NamedText(null.path, null.reason);
    json.CloseObject();
}

void WriteCounts(CJsonText& json, const RowCounts& counts) {
    json.Name("tables");
    json.OpenObject();
    for (const auto& [name, rows] : counts) {
        json.Name(name);
        json.Number(static_cast<std::int64_t>(rows));
    }
    json.CloseObject();
}

/// An object whose fields `write` writes.
template <class Write>
std::string ObjectText(Write write) {
    std::ostringstream text;
    {
        CJsonText json(text);
        json.OpenObject();
        write(json);
        json.CloseObject();
    }
    return text.str();
}

}  // namespace

std::string AccountHead(const ExploredAccount& account, const RowCounts& counts) {
    return ObjectText([&](CJsonText& json) {
        const CReport& report = account.source.report;
        WriteKey(json, AccountOf(report.Request), false);
        json.Name("run");
        WriteRun(json, report, account.run);
        WriteReasons(json, account.source.analysis);
        WriteCounts(json, counts);
    });
}

std::string SumHead(const SummedAccounts& sum, bool isForeign, const RowCounts& counts) {
    return ObjectText([&](CJsonText& json) {
        WriteKey(json, {.user = {}, .account = {}, .isForeign = isForeign}, true);
        json.Name("opening");
        if (sum.opening) {
            json.Number(*sum.opening);
        } else {
            json.Null();
        }
        WriteReasons(json, sum.analysis);
        WriteCounts(json, counts);
    });
}

std::string PageHead(std::span<const std::string> accounts) {
    std::string list;
    for (const std::string& account : accounts) list.append(list.empty() ? "" : ",").append(account);
    return "{\"schema\":" + std::to_string(kTableSchema) + ",\"program\":\"tradebill " TRADEBILL_VERSION +
           "\",\"accounts\":[" + list + "]}";
}

}  // namespace tradebill
