// In which order files are imported.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tradebill {

/// A file whose turn it is.
struct ImportStep {
    std::size_t file;            ///< its place in the list
    std::string refusal = {};    ///< why it can't be imported, a sentence in UTF-8; empty: it can be tried
    std::string_view form = {};  ///< of a workbook that is refused
};

/// The steps of `files` in the order of their import: texts as they stand there, and then workbooks by their days, for
/// a workbook may close what an earlier day opened. A text that has a day of a workbook which stands before it comes
/// behind the workbooks, since of two contents for a day the first is taken. A workbook whose day can't be looked for
/// is refused. `account` is that of files which state none.
[[nodiscard]] std::vector<ImportStep> ImportOrder(const std::vector<std::string>& files,
                                                  const std::optional<std::string>& account = {});

}  // namespace tradebill
