#include "page/packed_rows.h"

#include <ios>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "page/page_sink.h"
#include "page/page_text.h"

namespace tradebill {
namespace {

constexpr std::string_view kUnpackable =
    "此处折叠的内容需要能运行脚本的新版浏览器和完整的文件才能展开。 / "
    "To unfold what is folded here takes a newer browser that runs scripts, and an undamaged file.";

void Write(std::ostream& out, std::string_view utf8) {
    out.write(utf8.data(), static_cast<std::streamsize>(utf8.size()));
}

constexpr std::string_view kNoteAttributes = "style=\"padding:5px 0px; \"";
constexpr std::string_view kUnfoldingAttributes =
    "style=\"padding:5px 0px; cursor:pointer; \" data-unfolds role=\"button\" tabindex=\"0\" aria-expanded=\"false\"";
constexpr std::string_view kFoldedMark = "▸ ";  // the script turns its first character down

}  // namespace

void CPackedRows::Begin(const PageRows& table) {
    columns_ = table.columns;
    lineClass_ = table.lineClass;
    BeginGroup({});
}

void CPackedRows::BeginGroup(std::string_view name) {
    if (!isPacking_) {
        held_.push_back({std::string(name), {}});
        return;
    }
    EndPiece();
    name_ = name;
    parts_ = 0;
}

void CPackedRows::Add(std::string_view rows) {
    if (isPacking_) {
        Pack(rows);
        return;
    }
    held_.back().rows += rows;
    heldBytes_ += rows.size();
    if (heldBytes_ <= kMostPlainBytes) return;
    isPacking_ = true;
    WriteNote();
    for (const Group& group : std::exchange(held_, {})) {
        BeginGroup(group.name);
        Pack(group.rows);
    }
}

void CPackedRows::End() {
    for (const Group& group : held_) Write(out_, group.rows);
    EndPiece();
    held_.clear();
    heldBytes_ = 0;
    isPacking_ = false;
    name_.clear();
    parts_ = 0;
}

void CPackedRows::Pack(std::string_view rows) {
    if (rows.empty()) return;
    if (parts_ == 0 || partBytes_ + rows.size() > kMostPartBytes) BeginPart();
    if (isInPiece_ && pieceBytes_ + rows.size() > kMostPieceBytes) EndPiece();
    if (!isInPiece_) BeginPiece();
    partBytes_ += rows.size();
    pieceBytes_ += rows.size();
    deflater_->Add(rows);
    WriteDigits();
}

void CPackedRows::BeginPart() {
    EndPiece();
    partBytes_ = 0;
    ++parts_;
    if (name_.empty() && parts_ == 1) return;
    std::string name = EscapedText(name_);
    if (parts_ > 1) Append(name, name.empty() ? "" : " ", "第 ", parts_, " 部分 / part ", parts_);
    Write(out_, "<tbody>\r\n");
    Write(out_, Line(kUnfoldingAttributes, Joined(kFoldedMark, name)));
    Write(out_, "</tbody>\r\n");
}

void CPackedRows::BeginPiece() {
    if (deflater_ == nullptr) {
        deflater_ = std::make_unique<CDeflater>([this](std::string_view packed) { base64_.Add(packed, digits_); });
    }
    Write(out_, "<tbody data-packed><script type=\"application/octet-stream\">");
    isInPiece_ = true;
    pieceBytes_ = 0;
}

void CPackedRows::EndPiece() {
    if (!isInPiece_) return;
    deflater_->Finish();
    base64_.Finish(digits_);
    WriteDigits();
    Write(out_, "</script></tbody>\r\n");
    isInPiece_ = false;
}

void CPackedRows::WriteNote() {
    Write(out_, "<tbody data-unpackable>\r\n");
    Write(out_, Line(kNoteAttributes, kUnpackable));
    Write(out_, "</tbody>\r\n");
}

/// One cell over the whole row.
std::string CPackedRows::Line(std::string_view attributes, std::string_view text) const {
    return Joined("<tr class='billclr2'>\r\n<td colspan=\"", static_cast<int>(columns_), "\" ", attributes,
                  "><span class='", lineClass_, "'>", text, "</span></td></tr>\r\n");
}

void CPackedRows::WriteDigits() {
    Write(out_, digits_);
    digits_.clear();
}

}  // namespace tradebill
