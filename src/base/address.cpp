#include "base/address.h"

#include <string>
#include <string_view>

namespace tradebill {
namespace {

constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";

}  // namespace

std::string AddressPath(std::string_view path, std::string_view alsoPlain) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string address;
    for (const char byte : path) {
        if (kPlain.find(byte) != std::string_view::npos || alsoPlain.find(byte) != std::string_view::npos) {
            address += byte;
            continue;
        }
        const auto number = static_cast<unsigned char>(byte);
        address += {'%', kDigits[number >> 4U], kDigits[number & 15U]};
    }
    return address;
}

}  // namespace tradebill
