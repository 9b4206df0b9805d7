#include "findings/template_known_keys.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <optional>
#include <span>
#include <string_view>

#include "base/ini_file.h"
#include "readers/scan_listener.h"
#include "readers/template_keys.h"

namespace tradebill {
namespace {

// clang-format off
constexpr KnownKey kCommonKeys[] = {
    {"BILLFORMAT_NEWDATE", KeyUse::Text},
    {"FORMAT",             KeyUse::Integer},
    {"DATE_FORMAT",        KeyUse::Text},
    {"DATE_FORMAT_NEW",    KeyUse::Text},
    {"MONEY_MODE",         KeyUse::Integer},
    {"MONEY_MODE_NEW",     KeyUse::Integer},
    {"MATCH_RECORD",       KeyUse::Integer},
    {"PING_DETAIL",        KeyUse::Integer},
    {"OPI_DETAIL",         KeyUse::Integer},
    {"OPI_SUM",            KeyUse::Integer},
};

constexpr KnownKey kFrameKeys[] = {
    {"START_FLAG",   KeyUse::Text},
    {"START_OFFSET", KeyUse::Integer},
    {"END_FLAG",     KeyUse::Text},
    {"END_OFFSET",   KeyUse::Integer},
    {"DELIMITER",    KeyUse::Text},
    {"HEAD_FORMAT",  KeyUse::Remark},
};

// Beside those of the column tables.
constexpr KnownKey kLabelledMoneyKeys[] = {
    {"RJ_NAME",      KeyUse::Text},
    {"CJ_NAME",      KeyUse::Text},
    {"QLSR_NAME",    KeyUse::Text},
    {"QLZC_NAME",    KeyUse::Text},
    {"LABEL_END",    KeyUse::Text},
    {"ROWS_FROM",    KeyUse::Integer},
    {"ROWS_TO",      KeyUse::Integer},
    {"START_OFFSET", KeyUse::NotUsed},
    {"END_OFFSET",   KeyUse::NotUsed},
};
constexpr KnownKey kMoneyRowOtherKeys[] = {
    {"RJ_NAME",     KeyUse::Column},
    {"CJ_NAME",     KeyUse::Column},
    {"QLSR_NAME",   KeyUse::NotUsed},
    {"QLZC_NAME",   KeyUse::NotUsed},
    {"LABEL_END",   KeyUse::NotUsed},
    {"ROWS_FROM",   KeyUse::NotUsed},
    {"ROWS_TO",     KeyUse::NotUsed},
    {"XQSXF_NAME",  KeyUse::NotUsed},
    {"QLJSZ_NAME",  KeyUse::NotUsed},
    {"CCDSYK_NAME", KeyUse::NotUsed},
    {"END_FLAG",    KeyUse::NotUsed},
    {"END_OFFSET",  KeyUse::NotUsed},
};
constexpr KnownKey kClosedOtherKeys[] = {
    {"BID", KeyUse::MustHave},
};
constexpr KnownKey kOpenOtherKeys[] = {
    {"BID_VOL", KeyUse::LotsColumn},
    {"ASK_VOL", KeyUse::LotsColumn},
};
constexpr KnownKey kSummaryOtherKeys[] = {
    {"BID_POSITION_VOL", KeyUse::LotsColumn},
    {"ASK_POSITION_VOL", KeyUse::LotsColumn},
    {"BID",              KeyUse::NotUsed},
    {"POSITION_VOL",     KeyUse::NotUsed},
    {"POSITION_PRICE",   KeyUse::NotUsed},
};

constexpr TemplatePart kParts[] = {
    {SectionKind::Money,   "MONEY_RECORD", false},
    {SectionKind::Trades,  "MATCH_RECORD", false},
    {SectionKind::Closed,  "PING_DETAIL",  false},
    {SectionKind::Open,    "OPI_DETAIL",   false},
    {SectionKind::Summary, "OPI_SUM",      false},
};
// clang-format on

using Found = std::optional<KnownKey>;

Found FindIn(std::span<const KnownKey> keys, std::string_view key) {
    const auto found =
        std::ranges::find_if(keys, [&](const KnownKey& known) { return EqualsIgnoringCase(known.key, key); });
    return found == keys.end() ? Found() : *found;
}

template <class Record, std::size_t N>
Found FindColumn(const TemplateColumnKey<Record> (&table)[N], std::string_view key, KeyUse use = KeyUse::Column) {
    const auto* const found =
        std::ranges::find_if(table, [&](const auto& known) { return EqualsIgnoringCase(known.key, key); });
    return found == std::end(table) ? Found() : KnownKey{found->key, use};
}

/// The first that knows the key.
Found FirstOf(std::initializer_list<Found> candidates) {
    for (const Found& candidate : candidates) {
        if (candidate) return candidate;
    }
    return std::nullopt;
}

Found FindMoneyKey(bool inOneRow, std::string_view key) {
    if (inOneRow) return FirstOf({FindIn(kMoneyRowOtherKeys, key), FindColumn(kMoneyRowKeys, key)});
    return FirstOf({FindIn(kLabelledMoneyKeys, key), FindColumn(kMoneyLabelKeys, key, KeyUse::Text)});
}

Found FindColumnKey(SectionKind kind, bool moneyInOneRow, std::string_view key) {
    switch (kind) {
        case SectionKind::Money:
            return FindMoneyKey(moneyInOneRow, key);
        case SectionKind::Trades:
            return FindColumn(kTradeKeys, key);
        case SectionKind::Closed:
            return FirstOf({FindIn(kClosedOtherKeys, key), FindColumn(kClosedKeys, key)});
        case SectionKind::Open:
            return FirstOf({FindIn(kOpenOtherKeys, key), FindColumn(kOpenKeys, key), FindColumn(kOpenSharedKeys, key),
                            FindColumn(kOpenBuyKeys, key), FindColumn(kOpenSellKeys, key)});
        case SectionKind::Summary:
            return FirstOf({FindIn(kSummaryOtherKeys, key), FindColumn(kSummarySharedKeys, key),
                            FindColumn(kSummaryBuyKeys, key), FindColumn(kSummarySellKeys, key)});
        case SectionKind::Cash:
        case SectionKind::Exercises:
        case SectionKind::Deliveries:
            break;
    }
    return std::nullopt;
}

}  // namespace

std::optional<TemplatePart> FindTemplatePart(std::string_view section) {
    constexpr std::string_view kNew = "_NEW";
    for (const TemplatePart& part : kParts) {
        if (EqualsIgnoringCase(part.name, section)) return part;
        if (EqualsIgnoringCase(std::string(part.name).append(kNew), section))
            return TemplatePart{part.kind, part.name, true};
    }
    return std::nullopt;
}

std::optional<KnownKey> FindCommonKey(std::string_view key) {
    return FindIn(kCommonKeys, key);
}

std::optional<KnownKey> FindPartKey(SectionKind kind, bool moneyInOneRow, std::string_view key) {
    return FirstOf({FindColumnKey(kind, moneyInOneRow, key), FindIn(kFrameKeys, key)});
}

}  // namespace tradebill
