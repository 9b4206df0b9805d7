// The statement templates that the program carries inside: of layouts of the field that no fixed reader serves.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tradebill {

struct CarriedTemplate {
    std::string_view name;  ///< as --template takes it
    std::string_view text;  ///< the bytes of templates/NAME.ini: an INI text, GBK
};

/// By name. The source is made from the files as the build is set up (cmake/carried_templates.cmake).
[[nodiscard]] std::span<const CarriedTemplate> CarriedTemplates();

/// The text of the one called `name`; empty if there is none.
[[nodiscard]] std::string_view CarriedTemplateText(std::string_view name);

/// The format that a template names for itself (FORMAT in its first section): that of the file `path`, or of `carried`
/// where there is none. Nothing if it names none. Throws CUnreadableInput for a file that is there and can't be read.
[[nodiscard]] std::optional<std::int32_t> FormatOfTemplate(const std::string& path, std::string_view carried);

}  // namespace tradebill
