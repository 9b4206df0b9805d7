// Which products belong together, so that opposite positions in them may share margin. Read from a chain file at the
// start of every run.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/file.h"

namespace tradebill {

/// One chain: the product that heads it and the products whose opposite positions share its margin. Texts of at most 31
/// bytes.
class CContractChain {
public:
    explicit CContractChain(std::string_view itemBase) : ItemBase(itemBase) {}

    std::string ItemBase;
    std::vector<std::string> Items;  ///< in file order; an item that the file lacks is an empty text

    /// Whether `product` is one of the items, to the letter.
    [[nodiscard]] bool Contains(std::string_view product) const;
};

class CChainTable {
public:
    std::vector<std::unique_ptr<CContractChain>> Chains;  ///< in file order, two of one ItemBase included

    /// Adds the chains of a file. A missing one adds nothing. What the file's counts promise beyond what it holds takes
    /// no memory to speak of. Returns the file if it is there and can't be read, which adds nothing either.
    [[nodiscard]] std::optional<UnreadFile> Load(const std::string& path);

    /// The chain headed by `product`, or null; the later one of two. Valid until Clear().
    [[nodiscard]] const CContractChain* FindChain(std::string_view product) const;

    void Clear();

private:
    std::unordered_map<std::string, const CContractChain*> byBase_;
};

}  // namespace tradebill
