// Rows of a table, packed where they are many: a page of a year shows at once and takes little room. Browsers unpack
// them as they are asked for (standalone_script.js).
#pragma once

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/base64.h"
#include "base/deflate.h"
#include "page/page_sink.h"

namespace tradebill {

/// Few rows are written as they stand, when they end. Many come as pieces, each a body of the table:
///   <tbody data-packed><script type="application/octet-stream">base64 of the rows' UTF-8, as zlib packs
///   it</script></tbody>
/// Pieces behind each other are a part. Each group is one, and has before it a body with a line that unfolds it, marked
/// data-unfolds; a part that is too long goes on as another one. What comes before the first group has no line: it
/// unfolds with its table. The first body, marked data-unpackable, tells readers whose browser can't unpack. Texts are
/// UTF-8.
class CPackedRows {
public:
    /// Rows up to this size stand in the page as they are: some 500.
    static constexpr std::size_t kMostPlainBytes = std::size_t{512} << 10;
    /// Rows that a browser shows before it looks whether it is wanted for something else: some 1,000.
    static constexpr std::size_t kMostPieceBytes = std::size_t{1} << 20;
    /// Rows that it shows at a click: some 8,000.
    static constexpr std::size_t kMostPartBytes = std::size_t{8} << 20;

    /// Writes to `out`, which must outlive it.
    explicit CPackedRows(std::ostream& out) : out_(out) {}

    void Begin(const PageRows& table);
    /// The rows up to the next group have that name, which is text and not markup.
    void BeginGroup(std::string_view name);
    /// Whole rows. Throws std::bad_alloc where there is no memory to pack them.
    void Add(std::string_view rows);
    void End();

private:
    struct Group {
        std::string name;
        std::string rows;
    };

    void Pack(std::string_view rows);
    void BeginPart();
    void BeginPiece();
    void EndPiece();
    void WriteNote();
    void WriteDigits();
    [[nodiscard]] std::string Line(std::string_view attributes, std::string_view text) const;

    std::ostream& out_;
    std::size_t columns_ = 0;
    std::string lineClass_;
    std::vector<Group> held_;  // as long as they are few
    std::size_t heldBytes_ = 0;
    bool isPacking_ = false;

    std::string name_;
    int parts_ = 0;  // of that name
    std::size_t partBytes_ = 0;
    bool isInPiece_ = false;
    std::size_t pieceBytes_ = 0;
    std::unique_ptr<CDeflater> deflater_;  // made when the first piece is
    CBase64Text base64_;
    std::string digits_;  // that are still to be written
};

}  // namespace tradebill
