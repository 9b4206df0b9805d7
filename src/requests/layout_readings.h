// What each layout's reader would read of a statement.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "readers/layout_table.h"

namespace tradebill {

struct CarriedTemplate;

/// What one reader made of a statement.
struct LayoutReading {
    std::string name;               ///< of the layout that the format's reader chose by the text; "template NAME"
    std::string templateName = {};  ///< as --template takes it; empty: read by a layout
    std::int32_t format = 0;        ///< means nothing for the foreign kind
    bool namesFormat = true;        ///< false: a template that says nothing of it, which means 0
    bool isForeign = false;
    int sections = 0;         ///< found
    int rows = 0;             ///< read in them
    int records = 0;          ///< made of them, those of money among them
    bool hasMoney = false;    ///< a record of money is among them
    bool hasMarks = false;    ///< the layout's marks stand in the text; never of a template
    bool isDeclined = false;  ///< the template handed the statement on to a layout
    bool isStopped = false;   ///< an error would end the report at this statement

    /// Whether a template reads what makes a report.
    [[nodiscard]] bool IsReport() const { return !isDeclined && !isStopped && sections > 0 && hasMoney; }
};

/// The templates of `rootFolder` that a request can name, but for those of the program's names, in order. None where
/// they can't be listed.
[[nodiscard]] std::vector<std::string> OwnTemplates(const std::string& rootFolder);

/// Reads `text` by the reader of the format that `layout` belongs to, or of the foreign kind. `day`: yyyymmdd.
[[nodiscard]] LayoutReading ReadByLayout(const Layout& layout, std::string_view text, const std::string& day);

/// Reads `text` by a template of the program, or by that of `rootFolder` with its name, which wins. Throws
/// CUnreadableInput for one that is there and can't be read.
[[nodiscard]] LayoutReading ReadByCarried(const CarriedTemplate& carried, const std::string& rootFolder,
                                          std::string_view text, const std::string& day);

/// The reading by the first of the program's templates that makes a report of `text`, or by the only one of
/// `rootFolder` that does, unless a layout whose marks stand in it reads any of it. Throws CUsageError where several of
/// the root do, or the only one doesn't name its format, on which figures hang; and CUnreadableInput.
[[nodiscard]] std::optional<LayoutReading> ReadByFittingTemplate(const std::string& rootFolder, std::string_view text,
                                                                 const std::string& day);

/// Reads `text` as a report would by each format and by the foreign kind, in the order of the layouts' table, and by
/// each of the program's templates.
[[nodiscard]] std::vector<LayoutReading> ReadByEachLayout(std::string_view text, const std::string& day);

}  // namespace tradebill
