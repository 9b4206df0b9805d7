// The product that a contract belongs to: as the daily positions go by it, and as units do.
#pragma once

#include <string>
#include <string_view>

namespace tradebill {

class CProductSource;

/// Whether a contract's text is that of an option: a C or P behind a digit, a dash or a Chinese character, with nothing
/// but digits and dashes behind it, as in "m2405-C-3200", "SR405P6400" and "豆粕P2900".
[[nodiscard]] bool IsOptionContract(std::string_view contract);

/// All delivery months of a product are one position: a contract's text, cut to 31 bytes, before its first digit.
class CProductText {
public:
    explicit CProductText(std::string_view contract);

    /// For layouts that print names where the others print codes: the name without blanks of either width around it, or
    /// the code that `source`, which may be null, has for it.
    void TakeName(const CProductSource* source);

    /// Valid as long as this lives and takes no name.
    [[nodiscard]] std::string_view View() const;

private:
    char text_[32] = {};
};

/// Blanks and full-width blanks off both ends.
[[nodiscard]] std::string_view TrimBlanks(std::string_view text);

/// What units go by: a contract's text up to its first digit, without blanks and full-width blanks around it. Points
/// into `contract`.
[[nodiscard]] std::string_view ProductOfContract(std::string_view contract);

/// The future's product that a contract belongs to, whether it is the future itself or an option on it:
/// ProductOfContract without dashes at its end, and without the C or P of an option. That stands behind a dash, a
/// Chinese character or, where the delivery month stands apart and the digits are a strike price, behind anything:
/// "PTAP5900" of "2405" is an option on PTA, "PP2405" is none. Points into `contract`.
[[nodiscard]] std::string_view FutureProductOf(std::string_view contract, std::string_view delivery);

/// What a contract goes by: its text and, where product and delivery month stand apart, the month behind it, unless the
/// text has it. Without blanks of either width around both.
[[nodiscard]] std::string ContractKey(std::string_view contract, std::string_view delivery, bool standsApart);

}  // namespace tradebill
