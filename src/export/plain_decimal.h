// Amounts as they are printed, made numbers that JSON, CSV and a database take: digit by digit, so that nothing is
// rounded.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace tradebill {

/// A printed amount as a plain number: sign, digits, a point and digits behind it, without an exponent.
class CPlainDecimal {
public:
    /// White space around `text`, a "+" and leading zeros are dropped, and so are commas that mark thousands; a point
    /// gets a digit on both sides. Whatever else stands there makes it no number, as do more than 40 bytes.
    explicit CPlainDecimal(std::string_view text);

    [[nodiscard]] bool IsNumber() const { return size_ != 0; }
    /// Empty if it is no number. Lives as long as this.
    [[nodiscard]] std::string_view View() const { return {chars_.data(), size_}; }

private:
    static constexpr std::size_t kLongest = 40;
    [[nodiscard]] bool Take(std::string_view digits);
    void Put(char byte) { chars_[size_++] = byte; }

    std::array<char, kLongest + 2> chars_;  // a zero may come before and behind the point
    std::size_t size_ = 0;
};

}  // namespace tradebill
