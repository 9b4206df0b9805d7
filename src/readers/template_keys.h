// The keys of a statement template: which of them fill which fields. One table for the reader, which asks for them, and
// for the check, which knows by it what a template may say.
#pragma once

#include <cstddef>
#include <string_view>

#include "readers/columns.h"
#include "report/money_record.h"
#include "report/records.h"

namespace tradebill {

inline constexpr std::string_view kTemplateCommonSection = "DEALFIELD";
inline constexpr std::string_view kTemplateChangeDate = "BILLFORMAT_NEWDATE";
inline constexpr std::string_view kTemplateFormat =
    "FORMAT";                                            ///< of statements that the program reads without --format
inline constexpr std::size_t kLongestTemplateText = 31;  ///< bytes that count of a text

/// A column key and its field.
template <class Record>
struct TemplateColumnKey {
    std::string_view key;
    FieldSlot<Record> field;
    Treatment treatment = Treatment::Copy;
};

// clang-format off
inline constexpr TemplateColumnKey<MoneyRecord> kMoneyRowKeys[] = {
    {"QCQY_NAME",  Slot<&MoneyRecord::QCQY>},
    {"SXF_NAME",   Slot<&MoneyRecord::SXF>},
    {"QMJC_NAME",  Slot<&MoneyRecord::QMJC>},
    {"QMJC_NAME",  Slot<&MoneyRecord::KHQY>},  // unless the row states the equity
    {"KHQY_NAME",  Slot<&MoneyRecord::KHQY>},
    {"KYZJ_NAME",  Slot<&MoneyRecord::KYZJ>},
    {"BZJZY_NAME", Slot<&MoneyRecord::BZJZY>},
};

inline constexpr TemplateColumnKey<MoneyRecord> kMoneyLabelKeys[] = {
    {"KHQY_NAME",   Slot<&MoneyRecord::KHQY>},
    {"BZJZY_NAME",  Slot<&MoneyRecord::BZJZY>},
    {"SXF_NAME",    Slot<&MoneyRecord::SXF>},
    {"KYZJ_NAME",   Slot<&MoneyRecord::KYZJ>},
    {"CRJ_NAME",    Slot<&MoneyRecord::CRJ>},
    {"QCQY_NAME",   Slot<&MoneyRecord::QCQY>},
    {"QMJC_NAME",   Slot<&MoneyRecord::QMJC>},
    {"PCYK_NAME",   Slot<&MoneyRecord::PCYK>},
    {"CCDSYK_NAME", Slot<&MoneyRecord::CCDSYK>},
    {"XQSXF_NAME",  Slot<&MoneyRecord::XQSXF>},
    {"QLJSZ_NAME",  Slot<&MoneyRecord::QLJSZ>},
};

inline constexpr TemplateColumnKey<MatchRecord> kTradeKeys[] = {
    {"MATCH_DATE",  Slot<&MatchRecord::MATCH_DATE>},
    {"EXCH_NAME",   Slot<&MatchRecord::EXCH_NAME>},
    {"CONTRACT",    Slot<&MatchRecord::CONTRACT>},
    {"DELIVERY",    Slot<&MatchRecord::DELIVERY>},
    {"HEDGE",       Slot<&MatchRecord::HEDGE>},
    {"BID",         Slot<&MatchRecord::BID>},
    {"OFFSET",      Slot<&MatchRecord::OFFSET>},
    {"MATCH_PRICE", Slot<&MatchRecord::MATCH_PRICE>},
    {"MATCH_VOL",   Slot<&MatchRecord::MATCH_VOL>},
    {"TURNOVER",    Slot<&MatchRecord::TURNOVER>},
    {"POUNDAGE",    Slot<&MatchRecord::POUNDAGE>},
    {"OFFSETPL",    Slot<&MatchRecord::OFFSETPL>},
    {"ROYALTY",     Slot<&MatchRecord::ROYALTY>},
    {"MATCHNO",     Slot<&MatchRecord::MATCHNO>},
};

inline constexpr TemplateColumnKey<PingDetail> kClosedKeys[] = {
    {"MATCH_DATE",   Slot<&PingDetail::MATCH_DATE>},
    {"EXCH_NAME",    Slot<&PingDetail::EXCH_NAME>},
    {"CONTRACT",     Slot<&PingDetail::CONTRACT>},
    {"DELIVERY",     Slot<&PingDetail::DELIVERY>},
    {"BID",          Slot<&PingDetail::BID>, Treatment::InvertedSide},
    {"MATCH_PRICE",  Slot<&PingDetail::MATCH_PRICE>},
    {"MATCH_VOL",    Slot<&PingDetail::MATCH_VOL>},
    {"OPEN_DATE",    Slot<&PingDetail::OPEN_DATE>},
    {"OPEN_PRICE",   Slot<&PingDetail::OPEN_PRICE>},
    {"SETTLE_PRICE", Slot<&PingDetail::SETTLE_PRICE>},
    {"POUNDAGE",     Slot<&PingDetail::POUNDAGE>},
    {"HEDGE",        Slot<&PingDetail::HEDGE>},
    {"OFFSETPL",     Slot<&PingDetail::OFFSETPL>},
};

inline constexpr TemplateColumnKey<OpiDetail> kOpenKeys[] = {
    {"EXCH_NAME",     Slot<&OpiDetail::EXCH_NAME>},
    {"CONTRACT",      Slot<&OpiDetail::CONTRACT>},
    {"DELIVERY",      Slot<&OpiDetail::DELIVERY>},
    {"OPEN_DATE",     Slot<&OpiDetail::OPEN_DATE>},
    {"HEDGE",         Slot<&OpiDetail::HEDGE>},
    {"BID",           Slot<&OpiDetail::BID>},
    {"POSITION_VOL",  Slot<&OpiDetail::POSITION_VOL>},
    {"OPEN_PRICE",    Slot<&OpiDetail::OPEN_PRICE>},
    {"YSETTLE_PRICE", Slot<&OpiDetail::YSETTLE_PRICE>},
    {"SETTLE_PRICE",  Slot<&OpiDetail::SETTLE_PRICE>},
    {"FLOATPL",       Slot<&OpiDetail::FLOATPL>},
    {"DSYK",          Slot<&OpiDetail::DSYK>},
    {"DEPOSIT",       Slot<&OpiDetail::DEPOSIT>},
};

// Rows that hold both sides: the lots decide whether a side has a record.
inline constexpr TemplateColumnKey<OpiSum> kOpenSharedKeys[] = {
    {"CONTRACT",      Slot<&OpiSum::CONTRACT>},
    {"YSETTLE_PRICE", Slot<&OpiSum::YSETTLE_PRICE>},
    {"SETTLE_PRICE",  Slot<&OpiSum::SETTLE_PRICE>},
    {"DSYK",          Slot<&OpiSum::DSYK>},
    {"DEPOSIT",       Slot<&OpiSum::DEPOSIT>},
    {"HEDGE",         Slot<&OpiSum::HEDGE>},
};
inline constexpr TemplateColumnKey<OpiSum> kOpenBuyKeys[] = {
    {"BID_VOL",   Slot<&OpiSum::POSITION_VOL>},
    {"BID_PRICE", Slot<&OpiSum::POSITION_PRICE>},
};
inline constexpr TemplateColumnKey<OpiSum> kOpenSellKeys[] = {
    {"ASK_VOL",   Slot<&OpiSum::POSITION_VOL>},
    {"ASK_PRICE", Slot<&OpiSum::POSITION_PRICE>},
};

// POSITION_VOL stays empty: the summary keeps its lots in the fields of the two sides, which nothing reads.
inline constexpr TemplateColumnKey<OpiSum> kSummarySharedKeys[] = {
    {"EXCH_NAME",     Slot<&OpiSum::EXCH_NAME>},
    {"CONTRACT",      Slot<&OpiSum::CONTRACT>},
    {"DELIVERY",      Slot<&OpiSum::DELIVERY>},
    {"HEDGE",         Slot<&OpiSum::HEDGE>},
    {"YSETTLE_PRICE", Slot<&OpiSum::YSETTLE_PRICE>},
    {"SETTLE_PRICE",  Slot<&OpiSum::SETTLE_PRICE>},
    {"DSYK",          Slot<&OpiSum::DSYK>},
    {"DEPOSIT",       Slot<&OpiSum::DEPOSIT>},
};
inline constexpr TemplateColumnKey<OpiSum> kSummaryBuyKeys[] = {
    {"BID_POSITION_VOL", Slot<&OpiSum::BID_POSITION_VOL>},
    {"BID_AVPRICE",      Slot<&OpiSum::POSITION_PRICE>},
};
inline constexpr TemplateColumnKey<OpiSum> kSummarySellKeys[] = {
    {"ASK_POSITION_VOL", Slot<&OpiSum::ASK_POSITION_VOL>},
    {"ASK_AVPRICE",      Slot<&OpiSum::POSITION_PRICE>},
};
// clang-format on

}  // namespace tradebill
