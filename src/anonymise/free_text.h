// Names and numbers in the lines beside the tables: once a label has told them, they are hidden wherever they stand.
#pragma once

#include <set>
#include <string>
#include <string_view>

#include "anonymise/identity_map.h"
#include "anonymise/sheet_watch.h"
#include "anonymise/statement_sheet.h"

namespace tradebill {

/// What an account's statements say of client and broker.
class CKnownNames {
public:
    /// Takes what the labels of a statement tell, and the companies that it names.
    void Learn(const StatementSheet& sheet);

    /// A number that is hidden in free text, too.
    void LearnNumber(std::string_view number) { numbers_.emplace(number); }

    /// Hides all that is known in the lines of `text` that are no rows of tables. `text` keeps its length.
    void Hide(std::string& text, const CSheetWatch& watch, CIdentityMap& identities) const;

    [[nodiscard]] const std::set<std::string, std::less<>>& Numbers() const { return numbers_; }

private:
    [[nodiscard]] bool EndsInName(std::string_view text) const;
    void LearnCompanies(std::string_view line);

    std::set<std::string, std::less<>> names_;  ///< GBK
    std::set<std::string, std::less<>> numbers_;
};

}  // namespace tradebill
