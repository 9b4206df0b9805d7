#include "report/product_unit.h"

#include <string_view>

namespace tradebill {

std::string_view UnitSourceName(UnitSource source) {
    switch (source) {
        case UnitSource::File:
            return "file";
        case UnitSource::Trades:
            return "trades";
        case UnitSource::Table:
            return "table";
        case UnitSource::Unknown:
        case UnitSource::Waived:
            break;
    }
    return "none";
}

}  // namespace tradebill
