// Whose statements, rows and figures are whose.
#pragma once

#include <compare>
#include <string>
#include <string_view>

#include "base/text.h"
#include "driver/report_request.h"
#include "platform/paths.h"
#include "report/request_copy.h"

namespace tradebill {

/// A number alone is no account: two users may have the same, and each the statements of both families under it.
struct AccountKey {
    std::string user;     ///< folder below "Users"
    std::string account;  ///< number, as in the files' names
    bool isForeign = false;

    auto operator<=>(const AccountKey&) const = default;
};

/// A family of statements by its name.
[[nodiscard]] constexpr std::string_view KindName(bool isForeign) {
    return isForeign ? "foreign" : "domestic";
}

/// Whose report `request` asks for, in UTF-8.
[[nodiscard]] inline AccountKey AccountOf(const GenerateBillRequest& request) {
    return {.user = Utf8Path(std::string(FieldText(request.UserFolder))),
            .account = Utf8Path(std::string(FieldText(request.Account))),
            .isForeign = request.StatementKind == kForeignKind};
}

}  // namespace tradebill
