#include "explore/explore_page.h"

#include <cstddef>
#include <ios>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/account_sum.h"
#include "explore/account_head.h"
#include "explore/data_block.h"
#include "explore/sum_tables.h"
#include "explore/table_columns.h"
#include "export/table.h"
#include "export/table_list.h"
#include "report/report.h"

namespace tradebill {
namespace {

/// Each table with rows as a block; the columns of one are in memory at a time.
RowCounts WriteTables(std::span<const ExportTable> tables, const ExportSource& source, const std::string& account,
                      std::ostream& out) {
    RowCounts counts;
    for (const ExportTable& table : tables) {
        CTableColumns columns(table.columns);
        table.walk(source, columns);
        counts.emplace_back(table.name, columns.Rows());
        if (columns.Rows() == 0) continue;
        CDataBlock block(out, account + "." + std::string(table.name));
        columns.WriteJson([&](std::string_view piece) { block.Add(piece); });
        block.Finish();
    }
    return counts;
}

void Write(std::string_view text, std::ostream& out) {
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

}  // namespace

void CExplorePage::Begin() {
    if (!isBegun_) Write(template_.substr(0, template_.find(kDataMark)), out_);
    isBegun_ = true;
}

/// Of the blocks of the next account.
std::string CExplorePage::NextName() const {
    return std::to_string(heads_.size());
}

void CExplorePage::Add(const ExploredAccount& account) {
    Begin();
    const RowCounts counts = WriteTables(Tables(), account.source, NextName(), out_);
    heads_.push_back(AccountHead(account, counts));
}

void CExplorePage::AddSum(const SummedAccounts& sum, bool isForeign) {
    Begin();
    const CReport none;
    const ExportSource source{.report = none, .analysis = sum.analysis};
    const RowCounts counts = WriteTables(SumTables(), source, NextName(), out_);
    heads_.push_back(SumHead(sum, isForeign, counts));
}

bool CExplorePage::Finish() {
    const std::size_t mark = template_.find(kDataMark);
    if (mark == std::string_view::npos) return false;
    Begin();
    CDataBlock head(out_, "head");
    head.Add(PageHead(heads_));
    head.Finish();
    std::string_view rest = template_.substr(mark + kDataMark.size());
    if (rest.starts_with('\n')) rest.remove_prefix(1);
    Write(rest, out_);
    return out_.good();
}

bool WriteExplorePage(std::string_view pageTemplate, const ExploredAccount& account, std::ostream& out) {
    CExplorePage page(pageTemplate, out);
    page.Add(account);
    return page.Finish();
}

}  // namespace tradebill
