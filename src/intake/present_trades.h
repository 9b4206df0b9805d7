// The trades in the statements of a folder, for workbooks that are imported into it.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "intake/opening_trades.h"
#include "platform/file.h"

namespace tradebill {

/// Reads an account's statements when it is first asked for one of its trades.
class CPresentTrades final : public COpeningSource {
public:
    explicit CPresentTrades(std::string folder);

    [[nodiscard]] std::optional<std::string> DayOf(const std::string& account, const OpeningTrade& trade,
                                                   const std::string& day) override;

    /// Why statements could not be read for what was asked since the last call, a sentence in UTF-8; empty: they were.
    /// They are read again for what is asked next.
    [[nodiscard]] std::string TakeFailure();

    /// Tells of a statement that took its place in the folder.
    void OnWritten(const std::string& account, const std::string& day, std::string_view text);

    /// Tells of one that would have taken it.
    void OnPlanned(const std::string& account, const std::string& day, std::string_view text);

private:
    struct Account {
        COpeningTrades trades = {};
        std::string failure = {};  ///< why not all of its statements could be read
    };

    Account& AccountOf(const std::string& name);
    [[nodiscard]] std::string ReadTrades(const std::string& account, COpeningTrades& trades);

    std::string folder_;
    std::string failedAccount_;  ///< that was asked for, and not all of whose statements could be read
    std::map<std::string, Account> accounts_;
    CFileBuffer buffer_;
};

}  // namespace tradebill
