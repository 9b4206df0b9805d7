// The index of a batch: a page of all accounts with links to their files. docs/batch.md tells what stands in it.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

#include "batch/results_file.h"

namespace tradebill {

/// Margin use above which an account is marked, a fraction; the reader of the page may take another.
inline constexpr double kUsualRiskLimit = 0.8;

struct AccountsIndex {
    const ResultsByAccount& results;
    std::string today = {};  ///< yyyymmdd, when the batch ran; empty if that isn't told
    double riskLimit = kUsualRiskLimit;
};

/// One UTF-8 file that needs no network. `pageTemplate` is AccountsTemplate() (viewer_template.h). False if it has no
/// line kDataMark, and nothing is written then, or if not all could be written.
[[nodiscard]] bool WriteAccountsPage(std::string_view pageTemplate, const AccountsIndex& index, std::ostream& out);

}  // namespace tradebill
