// What a statement template says that a statement of its broker doesn't bear out: columns that no row has, sections and
// labels that don't stand in it.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "base/ini_file.h"
#include "findings/template_check.h"

namespace tradebill {

/// A statement that a template should fit.
struct TemplateSample {
    std::string_view text;               ///< GBK
    std::string_view day;                ///< yyyymmdd, which picks the description
    std::optional<std::int32_t> format;  ///< nothing: FormatByTemplate
};

/// The format that a template seems to be made for: 201 if its open positions hold both sides in one row, otherwise 1.
[[nodiscard]] std::int32_t FormatByTemplate(const CIniFile& file);

/// Findings in the order of the template's lines. What CheckTemplate finds without a statement isn't told again.
[[nodiscard]] std::vector<TemplateFinding> CheckTemplateAgainst(const CIniFile& file, const TemplateSample& sample);

}  // namespace tradebill
