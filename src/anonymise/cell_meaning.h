// What a cell of a statement means, and so how it is changed: told by the field that a reader fills from it, or by the
// words above or in front of it where no reader looks.
#pragma once

#include <string_view>

namespace tradebill {

enum class Meaning {
    Unknown,   ///< its own form decides
    Keep,      ///< a word of the trade: side, currency, time
    Contract,  ///< stays, and so do the next three
    Product,
    Delivery,
    Side,
    Currency,
    Lots,
    Date,
    Identity,  ///< the number of an account, a trade or a client
    Name,      ///< of a person, or what leads to one
    Price,
    Turnover,
    ProfitLoss,
    Money,  ///< any other amount
    Ratio,
};

/// What is printed as an amount of money.
[[nodiscard]] constexpr bool IsMoney(Meaning meaning) {
    return meaning == Meaning::Turnover || meaning == Meaning::ProfitLoss || meaning == Meaning::Money;
}

/// Of a name of report/record_fields.h.
[[nodiscard]] Meaning MeaningOfField(std::string_view field);

/// Of a column below `heading`, GBK.
[[nodiscard]] Meaning MeaningOfHeading(std::string_view heading);

/// Of what stands behind `label`, GBK, without its colon.
[[nodiscard]] Meaning MeaningOfLabel(std::string_view label);

}  // namespace tradebill
