// Data that a page holds for its script: packed, and in digits that nothing in a page has a meaning for.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

#include "base/base64.h"
#include "base/deflate.h"

namespace tradebill {

/// One element of a page: zlib's format in base64, under a name. Bytes reach the page in large pieces.
class CDataBlock {
public:
    /// Writes the opening tag. `page` must outlive it and tells whether all could be written. `name` is ASCII, of
    /// letters, digits, points and underscores.
    CDataBlock(std::ostream& page, std::string_view name);

    void Add(std::string_view bytes);
    /// Writes what is left and the closing tag. Nothing may be added behind it.
    void Finish();

private:
    void HandOn();

    std::ostream& page_;
    std::string digits_;
    CBase64Text base64_;
    CDeflater deflater_;
};

}  // namespace tradebill
