#include "analysis/product_names.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "report/product_source.h"
#include "report/product_text.h"
#include "report/report.h"

namespace tradebill {

const ProductName& CProductNames::Of(std::string_view contract, std::string_view delivery) {
    constexpr std::size_t kLongestName = 31;
    const std::string_view printed = FutureProductOf(contract, delivery).substr(0, kLongestName);
    if (const auto found = names_.find(printed); found != names_.end()) return found->second;
    ProductName product{.key = std::string(printed), .name = {}};
    if (report_.Products != nullptr) {
        if (auto code = report_.Products->CodeOf(printed)) product = {*std::move(code), std::string(printed)};
    }
    return names_.emplace(printed, std::move(product)).first->second;
}

}  // namespace tradebill
