#include "batch/accounts_page.h"

#include <cstddef>
#include <ios>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <string_view>

#include "batch/summary_table.h"
#include "explore/data_block.h"
#include "explore/explore_page.h"
#include "explore/table_columns.h"

namespace tradebill {
namespace {

constexpr int kSchema = 1;

std::string HeadOf(const AccountsIndex& index) {
    using Json = nlohmann::ordered_json;
    const Json head = {{"schema", kSchema},
                       {"program", "tradebill " TRADEBILL_VERSION},
                       {"day", index.today},
                       {"riskLimit", index.riskLimit}};
    return head.dump(-1, ' ', false, Json::error_handler_t::replace);
}

void WriteBlocks(const AccountsIndex& index, std::ostream& out) {
    CDataBlock head(out, "head");
    head.Add(HeadOf(index));
    head.Finish();
    CTableColumns columns(SummaryColumns());
    WalkSummary(index.results, SummaryReader::Page, columns);
    CDataBlock accounts(out, "accounts");
    columns.WriteJson([&](std::string_view piece) { accounts.Add(piece); });
    accounts.Finish();
}

void Write(std::string_view text, std::ostream& out) {
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

}  // namespace

bool WriteAccountsPage(std::string_view pageTemplate, const AccountsIndex& index, std::ostream& out) {
    const std::size_t mark = pageTemplate.find(kDataMark);
    if (mark == std::string_view::npos) return false;
    Write(pageTemplate.substr(0, mark), out);
    WriteBlocks(index, out);
    std::string_view rest = pageTemplate.substr(mark + kDataMark.size());
    if (rest.starts_with('\n')) rest.remove_prefix(1);
    Write(rest, out);
    return out.good();
}

}  // namespace tradebill
