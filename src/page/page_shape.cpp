// The order of the whole page.
#include <optional>
#include <string>
#include <string_view>

#include "base/gbk.h"
#include "page/html_builder.h"
#include "page/page_file.h"
#include "page/page_scripts.h"
#include "page/page_sections.h"
#include "report/report.h"

namespace tradebill {
namespace {

using SectionWriter = bool (*)(CHtmlBuilder& page, const CReport& report);

bool AddNotes(CHtmlBuilder& page, const CReport& /*report*/) {
    AddNotesSection(page);
    return true;
}

/// An anchor and the section under it.
struct PageSection {
    std::string_view anchor;
    SectionWriter domestic;
    SectionWriter foreign;
    bool inForeignPages = true;
};

// clang-format off
constexpr PageSection kSections[] = {
    {"账户统计"_gbk, AddAccountSection,  AddForeignAccountSection},
    {"交易统计"_gbk, AddTradeSection,    AddForeignTradeSection},
    {"期末持仓"_gbk, AddPositionSection, AddForeignPositionSection},
    {"成交明细"_gbk, AddMatchSection,    AddForeignMatchSection},
    {"平仓记录"_gbk, AddOffsetSection,   nullptr, false},
    {"报告说明"_gbk, AddNotes,           AddNotes},
};
// clang-format on

}  // namespace

std::optional<std::string> WritePlaceholderPage(const WholePath& path, bool finished) {
    CHtmlBuilder page(path);
    page.AddHeading(2, "", finished ? "请查询！"_gbk : "账单查询中..."_gbk);
    page.ClosePage();
    return page.HasFailed() ? std::optional(page.WhyFailed()) : std::nullopt;
}

void AddPageSections(CHtmlBuilder& page, const CReport& report) {
    const CPageGathering gathering(page);
    AddPageScripts(page, report);
    for (const PageSection& section : kSections) {
        if (report.IsForeign() && !section.inForeignPages) continue;
        page.AddAnchor(section.anchor);
        const SectionWriter writer = report.IsForeign() ? section.foreign : section.domestic;
        writer(page, report);  // a section that saw the stop doesn't end the page
    }
    page.ClosePage();
}

}  // namespace tradebill
