// Where the products of China's futures exchanges are traded, and how statements name them.
#pragma once

#include <span>
#include <string_view>

namespace tradebill {

struct ProductName {
    std::string_view code;      ///< as contracts begin with it
    std::string_view exchange;  ///< UTF-8, as name
    std::string_view name;
};

/// The product of a contract, future or option; null if it isn't known.
[[nodiscard]] const ProductName* FindProduct(std::string_view contract);

/// All of them.
[[nodiscard]] std::span<const ProductName> ProductNames();

}  // namespace tradebill
