// The second page: the viewer that the program carries, filled with the tables of an account. In come a report, its
// analysis and its findings, as for the tables of other programs; out goes one UTF-8 file that needs no network.
//
// table_columns.h turns a table into columns, data_block.h packs them, viewer_template.h has the page around them.
// docs/explore.md tells what stands in the blocks.
#pragma once

#include <iosfwd>
#include <string_view>

#include "export/run_json.h"
#include "export/table.h"

namespace tradebill {

/// The line of a template in whose place the data come.
inline constexpr std::string_view kDataMark = "<!--tradebill data-->";

/// An account as it is explored.
struct ExploredAccount {
    ExportSource source;
    const RunFacts& run;
};

/// Writes `pageTemplate` with the data of the account, table by table. False if the template has no mark, or if `out`
/// has not taken all; what is written then is no page.
[[nodiscard]] bool WriteExplorePage(std::string_view pageTemplate, const ExploredAccount& account, std::ostream& out);

}  // namespace tradebill
