#include "export/json_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <ios>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <string_view>

#include "base/word_bytes.h"
#include "export/plain_decimal.h"
#include "platform/text_encoding.h"

namespace tradebill {
namespace {

/// Whether each of eight bytes is ASCII that JSON takes as it stands.
constexpr bool IsPlain(std::uint64_t word) {
    if ((word & kHighBits) != 0) return false;
    const std::uint64_t controls = ZeroBytes(word & Repeated('\xE0'));
    return (controls | EqualBytes(word, '"') | EqualBytes(word, '\\')) == 0;
}

bool IsPlain(std::string_view text) {
    for (; text.size() >= kWordBytes; text.remove_prefix(kWordBytes)) {
        if (!IsPlain(LoadWord(text.data()))) return false;
    }
    std::uint64_t word = Repeated(' ');
    std::memcpy(&word, text.data(), text.size());
    return IsPlain(word);
}

}  // namespace

CJsonText::CJsonText(std::ostream& out) : out_(out) {}

CJsonText::~CJsonText() {
    Flush();
}

void CJsonText::Name(std::string_view name) {
    Separate();
    Put('"');
    Put(name);
    Put("\":");
    needsComma_ = false;
}

void CJsonText::Text(std::string_view gbk) {
    Separate();
    if (IsPlain(gbk)) {
        Put('"');
        Put(gbk);
        Put('"');
    } else {
        PutDecoded(gbk);
    }
}

void CJsonText::Utf8Text(std::string_view utf8) {
    Separate();
    using Json = nlohmann::json;
    Put(Json(utf8).dump(-1, ' ', false, Json::error_handler_t::replace));
}

void CJsonText::Null() {
    Separate();
    Put("null");
}

void CJsonText::Truth(bool value) {
    Separate();
    Put(value ? "true" : "false");
}

void CJsonText::Decimal(const CPlainDecimal& decimal) {
    Separate();
    Put(decimal.IsNumber() ? decimal.View() : "null");
}

void CJsonText::Number(std::int64_t number) {
    Separate();
    std::array<char, 24> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    Put(std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())));
}

void CJsonText::Number(double number) {
    if (std::isnan(number)) return Text("nan");
    if (std::isinf(number)) return Text(number > 0 ? "inf" : "-inf");
    Separate();
    Put(nlohmann::json(number).dump());
}

void CJsonText::Open(char bracket) {
    Separate();
    Put(bracket);
    needsComma_ = false;
}

void CJsonText::Close(char bracket) {
    needsComma_ = false;
    Separate();
    Put(bracket);
    needsComma_ = true;
}

/// What stands between the last value and what comes now, a value as a rule.
void CJsonText::Separate() {
    if (needsComma_) Put(',');
    if (space_ != '\0') Put(space_);
    needsComma_ = true;
    space_ = '\0';
}

void CJsonText::Put(char byte) {
    if (used_ == kBlock) Flush();
    block_[used_++] = byte;
}

void CJsonText::Put(std::string_view bytes) {
    if (bytes.size() > kBlock - used_) {
        Flush();
        if (bytes.size() > kBlock) {
            out_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
            return;
        }
    }
    std::memcpy(block_.get() + used_, bytes.data(), bytes.size());
    used_ += bytes.size();
}

void CJsonText::Flush() {
    out_.write(block_.get(), static_cast<std::streamsize>(used_));
    used_ = 0;
}

void CJsonText::PutDecoded(std::string_view gbk) {
    if (gbk.size() > kLongestKnown) return Put(nlohmann::json(GbkToUtf8(gbk)).dump());
    Known& known = known_[std::hash<std::string_view>()(gbk) % kKnown];
    if (known.gbk != gbk) known = {std::string(gbk), nlohmann::json(GbkToUtf8(gbk)).dump()};
    Put(known.json);
}

}  // namespace tradebill
