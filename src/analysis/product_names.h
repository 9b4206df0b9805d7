// Under which product a contract's rows are counted.
#pragma once

#include <string>
#include <string_view>

#include "base/text_hash.h"

namespace tradebill {

class CReport;

struct ProductName {
    std::string key;   ///< the code that the products' source has, else what statements print
    std::string name;  ///< what they print, if that isn't the key
};

/// The products of a report, each asked for once. Texts are GBK.
class CProductNames {
public:
    /// REQUIRES: the report and its products outlive this.
    explicit CProductNames(const CReport& report) : report_(report) {}

    /// An option's product is that of its future. Valid as long as this lives.
    [[nodiscard]] const ProductName& Of(std::string_view contract, std::string_view delivery);

private:
    const CReport& report_;
    TextMap<ProductName> names_;
};

}  // namespace tradebill
