// What a host's callbacks say of products.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include "driver/report_request.h"
#include "report/product_source.h"

namespace tradebill {

/// Asks the callbacks of a request, whatever it holds at the time; a callback that is missing knows nothing.
///
/// REQUIRES: the request outlives it, and its texts are terminated.
class CHostProducts final : public CProductSource {
public:
    explicit CHostProducts(const GenerateBillRequest& request) : request_(request) {}

    [[nodiscard]] std::int32_t UnitOf(std::string_view contract, std::string_view delivery) const override;
    [[nodiscard]] std::optional<std::string> CodeOf(std::string_view name) const override;

private:
    const GenerateBillRequest& request_;
};

}  // namespace tradebill
