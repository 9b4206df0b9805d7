#include "explore/data_block.h"

#include <cstddef>
#include <ios>
#include <ostream>
#include <string_view>

namespace tradebill {
namespace {

constexpr std::size_t kPiece = std::size_t{128} * 1024;

}  // namespace

CDataBlock::CDataBlock(std::ostream& page, std::string_view name)
    : page_(page), deflater_([this](std::string_view packed) {
          base64_.Add(packed, digits_);
          if (digits_.size() >= kPiece) HandOn();
      }) {
    page_ << R"(<script type="application/octet-stream" id=")" << name << R"(">)";
}

void CDataBlock::Add(std::string_view bytes) {
    deflater_.Add(bytes);
}

void CDataBlock::Finish() {
    deflater_.Finish();
    base64_.Finish(digits_);
    HandOn();
    page_ << "</script>\n";
}

void CDataBlock::HandOn() {
    page_.write(digits_.data(), static_cast<std::streamsize>(digits_.size()));
    digits_.clear();
}

}  // namespace tradebill
