// Bytes as text that any document can hold.
#pragma once

#include <string>
#include <string_view>

namespace tradebill {

/// The bytes in base64, with padding and without line ends.
[[nodiscard]] std::string Base64(std::string_view bytes);

/// The same of bytes that come in pieces: what is added to `text` doesn't depend on where they are cut.
class CBase64Text {
public:
    /// Appends to `text`, which must outlive it, the digits of all groups of three bytes that are complete.
    void Add(std::string_view bytes, std::string& text);
    /// Appends the digits of what is left, and begins anew.
    void Finish(std::string& text);

private:
    std::string left_;  ///< at most two bytes
};

}  // namespace tradebill
