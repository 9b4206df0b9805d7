#include "driver/host_products.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/text.h"

namespace tradebill {

std::int32_t CHostProducts::UnitOf(std::string_view contract, std::string_view delivery) const {
    if (request_.ContractUnitCallback == nullptr) return 1;
    char contractText[64] = {};
    char deliveryText[64] = {};
    CopyField(contractText, contract);
    CopyField(deliveryText, delivery);
    return request_.ContractUnitCallback(request_.Account, contractText, deliveryText);
}

std::optional<std::string> CHostProducts::CodeOf(std::string_view name) const {
    if (request_.ProductNameCallback == nullptr) return std::nullopt;
    char nameText[32] = {};
    char code[32] = {};
    CopyField(nameText, name);
    if (request_.ProductNameCallback(nameText, code) != 1) return std::nullopt;
    return std::string(FieldText(code));
}

}  // namespace tradebill
