// The room of intake: from the files that users have, of any name and encoding and with several days in one, to the
// statements that the module looks for. bill_import.h takes a file and puts what it holds to its place; file_plan.h
// says what that is, by decoded_text.h, text_split.h and name_facts.h, and of a workbook by workbook.h, workbook_day.h
// and workbook_text.h.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "findings/finding.h"
#include "intake/workbook_text.h"

namespace tradebill {

struct PlannedStatement {
    std::string day;   ///< yyyymmdd
    std::string text;  ///< GBK with CRLF
};

/// What reads a statement.
struct TextLayout {
    std::string name = {};    ///< of the layouts' table, or "template NAME"; empty: unknown
    std::int32_t format = 0;  ///< that it belongs to
    bool isForeign = false;
};

/// What reads a statement of the day `day` that no layout of its marks reads; nothing if nothing does. May be empty.
using LayoutFinder = std::function<std::optional<TextLayout>(std::string_view text, const std::string& day)>;

/// What a file is, and what is to become of it.
struct FilePlan {
    TextLayout layout = {};                         ///< of its first statement
    std::string_view encoding = {};                 ///< as that of DecodedText, or the form of a workbook
    std::string account = {};                       ///< letters, digits, "-" and "_"
    std::vector<PlannedStatement> statements = {};  ///< by day, each day once
    std::string note = {};               ///< what is changed in the text, a sentence in UTF-8; empty: nothing
    std::string refusal = {};            ///< why nothing is to become of it, a sentence in UTF-8; empty: something is
    std::vector<Finding> findings = {};  ///< what a workbook leaves open or contradicts; without a file
    bool isUnreadable = false;           ///< refused because it is a workbook, and this program reads none
};

/// What is needed beside a file's bytes.
struct PlanHelp {
    COpeningSource* openings = nullptr;  ///< of workbooks: trades of other days; null: none is known
    std::string_view units = {};         ///< of workbooks: an INI file with [UNITS]
    LayoutFinder otherLayouts = {};      ///< of texts
};

/// Looks at all bytes of a file with the name `name`, without its folder. `account` is that of texts which state none.
[[nodiscard]] FilePlan PlanFile(std::string_view bytes, std::string_view name,
                                const std::optional<std::string>& account = {}, const PlanHelp& help = {});

/// Whether `account` can be one: of 1 to 16 letters, digits, "-" and "_".
[[nodiscard]] bool IsAccountName(std::string_view account);

}  // namespace tradebill
