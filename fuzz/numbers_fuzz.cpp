// Any texts as numbers and any numbers as texts, against the C library in the "C" locale.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "base/day.h"
#include "base/decimal.h"
#include "base/number.h"
#include "base/text.h"
#include "export/plain_decimal.h"
#include "fuzz_statement.h"
#include "fuzz_target.h"

namespace tradebill {
namespace {

/// White space, a sign and a plain decimal with an exponent, as far as they go.
std::string PlainNumber(std::string_view text) {
    std::string number;
    text = TrimLeft(text);
    const auto take = [&] {
        number += text.front();
        text.remove_prefix(1);
    };
    const auto takeDigits = [&] {
        const std::size_t before = number.size();
        while (!text.empty() && IsDigit(text.front())) take();
        return number.size() > before;
    };
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) take();
    bool hasDigits = takeDigits();
    if (!text.empty() && text.front() == '.') {
        take();
        hasDigits |= takeDigits();
    }
    if (!hasDigits) return "0";
    if (!text.empty() && (text.front() == 'e' || text.front() == 'E')) {
        take();
        if (!text.empty() && (text.front() == '-' || text.front() == '+')) take();
        takeDigits();  // an exponent without digits is none to strtod either
    }
    return number;
}

void RequireAmount(std::string_view text) {
    const double amount = ParseAmount(text);
    const double expected = std::strtod(PlainNumber(text).c_str(), nullptr);
    // What lies below the smallest normal number may be cut to 0.
    const bool isTiny = std::fabs(expected) < std::numeric_limits<double>::min() && amount == 0;
    Require(amount == expected || isTiny, "an amount is what strtod reads");
    Require(!IsAmount(text) || std::isfinite(amount) || text.size() > 300, "an amount that is one is finite");
}

void RequireInteger(std::string_view text) {
    const std::int32_t number = ParseInteger(text);
    const auto whole = WholeNumber(text);
    Require(!whole || *whole == number, "a whole number is what its start reads as");
    const CNumberText written(number);
    Require(WholeNumber(written) == number, "a number written out reads as itself");
    Require(ParseInteger(written) == number, "a number written out reads as itself, leniently");
}

std::string Printed(const char* format, int decimals, double amount) {
    char text[400];
    const int size = std::snprintf(text, sizeof text, format, decimals, amount);
    return {text, static_cast<std::size_t>(size)};
}

void RequireText(double amount, int decimals) {
    Require(CNumberText(amount).View() == Printed("%.*f", 2, amount), "two decimals are as printf has them");
    Require(CNumberText::SixDecimals(amount).View() == Printed("%.*f", 6, amount), "six decimals likewise");
    Require(CNumberText::Fixed(amount, decimals).View() == Printed("%.*f", decimals, amount), "any decimals likewise");
    if (!std::isfinite(amount)) return;
    const std::string text(CNumberText(amount).View());
    Require(IsAmount(text), "a finite amount written out is an amount");
    Require(CNumberText(ParseAmount(text)).View() == text, "an amount of two decimals reads and prints as itself");
    const std::int32_t cut = TruncateToInt32(amount);
    Require(std::fabs(amount) >= 2147483647.0 || cut == static_cast<std::int64_t>(amount), "a number is cut towards 0");
}

void RequireDecimal(std::string_view text) {
    const std::optional<Decimal> decimal = ParseDecimal(text);
    if (!decimal) return;
    Require(decimal->places >= 0 && decimal->places <= 4, "a decimal has up to four places");
    const std::optional<Decimal> again = ParseDecimal(DecimalText(decimal->steps));
    Require(again && again->steps == decimal->steps, "a decimal written out reads as itself");
    if (IsAmount(Trim(text)) && std::llabs(decimal->steps) < 1'000'000'000'000) {
        const double amount = ParseAmount(text);
        Require(std::fabs(amount * kDecimalSteps - static_cast<double>(decimal->steps)) < 1.01,
                "a decimal is the amount to its fourth place");
    }
}

/// Digits with a sign and a point, as they are written without marks: the number that must come of them.
bool IsPlain(std::string_view text) {
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
    const std::size_t digits = static_cast<std::size_t>(std::ranges::count_if(text, IsDigit));
    const std::size_t points = static_cast<std::size_t>(std::ranges::count(text, '.'));
    return digits > 0 && points <= 1 && digits + points == text.size();
}

void RequirePlainDecimal(std::string_view text) {
    constexpr std::size_t kLongest = 40;
    text = Trim(text);
    const CPlainDecimal plain(text);
    Require(plain.IsNumber() || !IsPlain(text) || text.size() > kLongest, "what is plain already is a number");
    if (!plain.IsNumber()) return;
    std::string digits(text);
    std::erase(digits, ',');
    const std::string written(plain.View());
    Require(IsPlain(digits) && IsPlain(written), "a number is digits alone, but for marks of thousands");
    Require(std::strtod(written.c_str(), nullptr) == std::strtod(digits.c_str(), nullptr),
            "it is the number of its digits");
    Require(written.size() > kLongest || CPlainDecimal(written).View() == written,
            "a plain number is written as it is");
    RequireJson(written);
}

void RequireDay(std::string_view text) {
    for (const CalendarDay& day : {ParseDashedDay(text), ParsePackedDay(text)}) {
        const auto midnight = TryMidnightOf(day);
        Require(midnight.has_value() == HasMidnight(day), "a day has a time or it hasn't");
        if (midnight && day.day <= 28) {
            Require(ParsePackedDay(DayText(day)) == day, "a packed day reads as itself");
            Require(ParseDashedDay(DashedDayText(day)) == day, "a dashed day reads as itself");
        }
    }
}

}  // namespace

void FuzzNumbers(std::string_view bytes) {
    CFuzzInput input(bytes);
    const auto decimals = static_cast<int>(input.Choice(10));
    RequireText(input.Amount(), decimals);
    while (!input.IsEmpty()) {
        const std::string_view text = input.Text();
        RequireAmount(text);
        RequireInteger(text);
        RequireDecimal(text);
        RequirePlainDecimal(text);
        RequireDay(text);
        RequireText(ParseAmount(text), decimals);
    }
}

}  // namespace tradebill
