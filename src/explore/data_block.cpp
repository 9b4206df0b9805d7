#include "explore/data_block.h"

#include <cstddef>
#include <ios>
#include <ostream>
#include <string_view>

namespace tradebill {
namespace {

constexpr std::size_t kPiece = std::size_t{128} * 1024;

/// Of 17 MB of columns this makes 3.34 MB in a third of the time in which the usual level makes 3.17 MB.
constexpr int kLevel = 4;

}  // namespace

CDataBlock::CDataBlock(std::ostream& page, std::string_view name)
    : page_(page),
      deflater_(
          [this](std::string_view packed) {
              base64_.Add(packed, digits_);
              if (digits_.size() >= kPiece) HandOn();
          },
          kLevel) {
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
