// The second page: the viewer that the program carries, filled with the tables of accounts. In come reports, their
// analyses and their findings, as for the tables of other programs; out goes one UTF-8 file that needs no network.
//
// table_columns.h turns a table into columns, data_block.h packs them, viewer_template.h has the page around them.
// docs/explore.md tells what stands in the blocks.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "export/run_json.h"
#include "export/table.h"

namespace tradebill {

struct SummedAccounts;

/// The line of a template in whose place the data come.
inline constexpr std::string_view kDataMark = "<!--tradebill data-->";

/// An account as it is explored.
struct ExploredAccount {
    ExportSource source;
    const RunFacts& run;
};

/// A page that is written account by account: the data of one needn't stay when those of the next come. Nothing is
/// written before the first.
class CExplorePage {
public:
    /// Both must outlive this. `pageTemplate` has a line kDataMark.
    CExplorePage(std::string_view pageTemplate, std::ostream& out) : template_(pageTemplate), out_(out) {}

    void Add(const ExploredAccount& account);
    /// What all accounts that were added come to; the page shows it first.
    void AddSum(const SummedAccounts& sum, bool isForeign);
    /// Writes the rest. False if the template has no mark, or if not all could be written; what there is then is no
    /// page.
    [[nodiscard]] bool Finish();

private:
    void Begin();
    [[nodiscard]] std::string NextName() const;

    std::string_view template_;
    std::ostream& out_;
    std::vector<std::string> heads_;  // an object of JSON for each account
    bool isBegun_ = false;
};

/// The page of one account.
[[nodiscard]] bool WriteExplorePage(std::string_view pageTemplate, const ExploredAccount& account, std::ostream& out);

}  // namespace tradebill
