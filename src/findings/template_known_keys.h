// What a template may say: its sections and, in each, the keys that a reader asks for.
#pragma once

#include <optional>
#include <string_view>

#include "readers/scan_listener.h"

namespace tradebill {

enum class KeyUse {
    Text,
    Integer,
    Column,
    LotsColumn,  ///< decides whether a side makes records
    MustHave,    ///< a column without which every row raises an error
    NotUsed,     ///< asked for, and without effect
    Remark,      ///< without effect too, and nobody expects one
};

struct KnownKey {
    std::string_view key;
    KeyUse use;
};

/// The part of the statement that `section` describes ("MATCH_RECORD_NEW" is Trades), or nothing.
struct TemplatePart {
    SectionKind kind;
    std::string_view name;  ///< without "_NEW"
    bool isNew;
};
[[nodiscard]] std::optional<TemplatePart> FindTemplatePart(std::string_view section);

/// A key of the common section, or nothing.
[[nodiscard]] std::optional<KnownKey> FindCommonKey(std::string_view key);

/// A key of a part's section. The money keys mean labels in money mode 0 and columns in mode 1.
[[nodiscard]] std::optional<KnownKey> FindPartKey(SectionKind kind, bool moneyInOneRow, std::string_view key);

}  // namespace tradebill
