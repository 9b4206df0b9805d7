// The script of the standalone page. The source is made from standalone_script.js as the build is set up
// (cmake/standalone_script.cmake).
#pragma once

#include <string_view>

namespace tradebill {

/// The bytes between the script's tags. ASCII.
[[nodiscard]] std::string_view StandaloneScript();

/// Their SHA-256 as a Content-Security-Policy spells it: "sha256-" and base64.
[[nodiscard]] std::string_view StandaloneScriptHash();

}  // namespace tradebill
