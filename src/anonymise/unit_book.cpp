#include "anonymise/unit_book.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "anonymise/cell_meaning.h"
#include "anonymise/statement_sheet.h"
#include "base/decimal.h"
#include "report/product_text.h"

namespace tradebill {
namespace {

bool HasDigit(std::string_view text) {
    return text.find_first_of("0123456789") != std::string_view::npos;
}

/// A contract's text names it alone if the delivery month is part of it.
std::string ContractOf(std::string_view contract, std::string_view product, std::string_view delivery) {
    if (HasDigit(contract)) return std::string(contract);
    const std::string_view name = contract.empty() ? product : contract;
    return std::string(name) + "/" + std::string(delivery);
}

}  // namespace

std::optional<std::int64_t> ProductOf(std::int64_t one, std::int64_t other) {
    std::int64_t product = 0;
    if (__builtin_mul_overflow(one, other, &product)) return std::nullopt;
    return product;
}

RowFacts FactsOf(StatementSheet& sheet, const SheetRow& row) {
    RowFacts facts;
    std::string_view contract;
    std::string_view product;
    std::string_view delivery;
    for (std::size_t i = row.firstCell; i < row.firstCell + row.cells; ++i) {
        SheetCell& cell = sheet.cells[i];
        const std::string_view text = sheet.TextOf(cell);
        switch (cell.meaning) {
            case Meaning::Contract:
                contract = text;
                break;
            case Meaning::Product:
                product = text;
                break;
            case Meaning::Delivery:
                delivery = text;
                break;
            case Meaning::Side:
                facts.side = text;
                break;
            case Meaning::Currency:
                facts.currency = text;
                break;
            case Meaning::Lots:
                if (cell.number && facts.lots == 0) facts.lots = cell.number->steps / kDecimalSteps;
                break;
            case Meaning::Price:
                if (cell.number) facts.prices.push_back(&cell);
                break;
            case Meaning::Turnover:
                if (cell.number) facts.turnover = &cell;
                break;
            default:
                break;
        }
    }
    if (!contract.empty() || !product.empty()) facts.contract = ContractOf(contract, product, delivery);
    return facts;
}

void CUnitBook::Feed(StatementSheet& sheet) {
    for (const SheetRow& row : sheet.rows) {
        if (row.isTotal) continue;
        const RowFacts facts = FactsOf(sheet, row);
        if (facts.turnover == nullptr || facts.contract.empty()) continue;
        for (const SheetCell* const price : facts.prices) {
            const auto cost = ProductOf(price->number->steps, facts.lots);
            if (!cost || *cost == 0 || facts.turnover->number->steps % *cost != 0) continue;
            const std::int64_t unit = facts.turnover->number->steps / *cost;
            if (unit > 0) units_.emplace(std::string(ProductOfContract(facts.contract)), unit);
            break;
        }
    }
}

std::optional<std::int64_t> CUnitBook::Of(std::string_view contract) const {
    const auto found = units_.find(ProductOfContract(contract));
    return found != units_.end() ? std::optional(found->second) : std::nullopt;
}

}  // namespace tradebill
