#include "analysis/exact_power.h"

#include <cmath>
#include <cstdint>

namespace tradebill {
namespace {

/// The exact sum, rounded and the rest (Knuth).
Precise TwoSum(double left, double right) {
    const double sum = left + right;
    const double part = sum - left;
    return {sum, (left - (sum - part)) + (right - part)};
}

/// The upper half of a double's digits (Veltkamp).
double UpperHalf(double number) {
    constexpr double kSplitter = 134217729;  // 2^27 + 1
    const double shifted = kSplitter * number;
    return shifted - (shifted - number);
}

/// The exact product, rounded and the rest (Dekker).
Precise TwoProduct(double left, double right) {
    const double product = left * right;
    const double leftUpper = UpperHalf(left);
    const double rightUpper = UpperHalf(right);
    const double leftLower = left - leftUpper;
    const double rightLower = right - rightUpper;
    const double rest =
        ((leftUpper * rightUpper - product) + leftUpper * rightLower + leftLower * rightUpper) + leftLower * rightLower;
    return {product, rest};
}

/// Beyond what can be split there is nothing left to be precise about.
bool IsTooLarge(double number) {
    constexpr double kLargest = 1e300;
    return !(std::fabs(number) < kLargest);
}

}  // namespace

Precise PreciseSum(const Precise& left, double right) {
    if (IsTooLarge(left.high) || IsTooLarge(right)) return {left.high + right, 0};
    const Precise sum = TwoSum(left.high, right);
    return TwoSum(sum.high, sum.low + left.low);
}

Precise PreciseProduct(const Precise& left, const Precise& right) {
    const double rough = left.high * right.high;
    if (IsTooLarge(rough) || IsTooLarge(left.high) || IsTooLarge(right.high)) return {rough, 0};
    const Precise product = TwoProduct(left.high, right.high);
    return TwoSum(product.high, product.low + (left.high * right.low + left.low * right.high));
}

Precise PreciseInverse(const Precise& number) {
    const double rough = 1 / number.high;
    if (IsTooLarge(rough) || IsTooLarge(number.high)) return {rough, 0};
    const Precise product = PreciseProduct(number, {rough, 0});
    const double rest = ((1 - product.high) - product.low) / number.high;
    return TwoSum(rough, rest);
}

Precise PrecisePower(Precise base, std::int64_t exponent) {
    Precise power{1, 0};
    for (; exponent > 0; exponent /= 2) {
        if (exponent % 2 != 0) power = PreciseProduct(power, base);
        if (exponent > 1) base = PreciseProduct(base, base);
    }
    return power;
}

double RootLessOne(double value, std::int64_t exponent) {
    double low = value < 1 ? -1 : 0;
    double high = value < 1 ? 0 : value - 1;
    for (;;) {
        const double middle = low + (high - low) / 2;
        if (middle <= low || middle >= high) return middle;
        const Precise power = PrecisePower(PreciseSum({1, 0}, middle), exponent);
        const double over = (power.high - value) + power.low;
        if (over == 0) return middle;
        (over < 0 ? low : high) = middle;
    }
}

}  // namespace tradebill
