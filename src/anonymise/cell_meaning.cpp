#include "anonymise/cell_meaning.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <span>
#include <string>
#include <string_view>

#include "base/gbk.h"
#include "base/text.h"

namespace tradebill {
namespace {

using enum Meaning;

struct MeaningRow {
    std::string_view word;
    Meaning meaning;
};

// clang-format off
constexpr MeaningRow kFields[] = {
    {"BILL_DATE",        Date},
    {"MATCH_DATE",       Date},
    {"OPEN_DATE",        Date},
    {"EXCH_NAME",        Keep},
    {"CONTRACT",         Contract},
    {"DELIVERY",         Delivery},
    {"HEDGE",            Keep},
    {"BID",              Side},
    {"OFFSET",           Keep},
    {"CURRENCY",         Currency},
    {"MATCHNO",          Identity},
    {"MATCH_VOL",        Lots},
    {"POSITION_VOL",     Lots},
    {"BID_POSITION_VOL", Lots},
    {"ASK_POSITION_VOL", Lots},
    {"MATCH_PRICE",      Price},
    {"OPEN_PRICE",       Price},
    {"SETTLE_PRICE",     Price},
    {"YSETTLE_PRICE",    Price},
    {"POSITION_PRICE",   Price},
    {"TURNOVER",         Turnover},
    {"OFFSETPL",         ProfitLoss},
    {"FLOATPL",          ProfitLoss},
    {"DSYK",             ProfitLoss},
};

// The first word that a heading contains decides.
constexpr MeaningRow kHeadings[] = {
    {"手续费"_gbk,   Money},
    {"行权费"_gbk,   Money},
    {"成交额"_gbk,   Turnover},
    {"成交金额"_gbk, Turnover},
    {"盈亏"_gbk,     ProfitLoss},
    {"日期"_gbk,     Date},
    {"编号"_gbk,     Identity},
    {"序号"_gbk,     Identity},
    {"成交号"_gbk,   Identity},
    {"单号"_gbk,     Identity},
    {"流水号"_gbk,   Identity},
    {"编码"_gbk,     Identity},
    {"账号"_gbk,     Identity},
    {"帐号"_gbk,     Identity},
    {"客户号"_gbk,   Identity},
    {"投资单元"_gbk, Identity},
    {"席位"_gbk,     Identity},
    {"客户名"_gbk,   Name},
    {"姓名"_gbk,     Name},
    {"户名"_gbk,     Name},
    {"银行"_gbk,     Name},
    {"操作员"_gbk,   Name},
    {"均价"_gbk,     Price},
    {"价"_gbk,       Price},
    {"昨结算"_gbk,   Price},
    {"今结算"_gbk,   Price},
    {"手数"_gbk,     Lots},
    {"买持"_gbk,     Lots},
    {"卖持"_gbk,     Lots},
    {"持仓量"_gbk,   Lots},
    {"数量"_gbk,     Lots},
    {"买入"_gbk,     Lots},
    {"卖出"_gbk,     Lots},
    {"费"_gbk,       Money},
    {"权利金"_gbk,   Money},
    {"市值"_gbk,     Money},
    {"保证金"_gbk,   Money},
    {"额"_gbk,       Money},
    {"入金"_gbk,     Money},
    {"出金"_gbk,     Money},
    {"结存"_gbk,     Money},
    {"资金"_gbk,     Money},
    {"权益"_gbk,     Money},
    {"收支"_gbk,     Money},
    {"款"_gbk,       Money},
    {"风险度"_gbk,   Ratio},
    {"率"_gbk,       Ratio},
    {"买/卖"_gbk,    Side},
    {"买卖"_gbk,     Side},
    {"合约"_gbk,     Contract},
    {"品种"_gbk,     Product},
    {"交割期"_gbk,   Delivery},
    {"交割月"_gbk,   Delivery},
    {"币种"_gbk,     Currency},
    {"交易所"_gbk,   Keep},
    {"时间"_gbk,     Keep},
    {"类型"_gbk,     Keep},
    {"开平"_gbk,     Keep},
    {"Turnover",     Turnover},
    {"P/L",          ProfitLoss},
    {"Price",        Price},
    {"Sttl",         Price},
    {"Lots",         Lots},
    {"Date",         Date},
    {"No.",          Identity},
    {"Code",         Identity},
    {"Account",      Identity},
    {"Client ID",    Identity},
    {"Client Name",  Name},
    {"Fee",          Money},
    {"Premium",      Money},
    {"Margin",       Money},
    {"Amount",       Money},
    {"Balance",      Money},
    {"Equity",       Money},
};

// These before the words of headings.
constexpr MeaningRow kLabels[] = {
    {"客户名称"_gbk,  Name},
    {"客户姓名"_gbk,  Name},
    {"姓名"_gbk,      Name},
    {"户名"_gbk,      Name},
    {"地址"_gbk,      Name},
    {"联系人"_gbk,    Name},
    {"电话"_gbk,      Name},
    {"手机"_gbk,      Name},
    {"传真"_gbk,      Name},
    {"邮箱"_gbk,      Name},
    {"证件"_gbk,      Name},
    {"身份证"_gbk,    Name},
    {"开户行"_gbk,    Name},
    {"经纪人"_gbk,    Name},
    {"客户经理"_gbk,  Name},
    {"Client Name",   Name},
    {"Address",       Name},
    {"Phone",         Name},
    {"Tel",           Name},
    {"Mail",          Name},
    {"客户号"_gbk,    Identity},
    {"客户代码"_gbk,  Identity},
    {"客户账号"_gbk,  Identity},
    {"客户编号"_gbk,  Identity},
    {"AccountID",     Identity},
    {"期货经纪"_gbk,  Name},
};
// clang-format on

template <class Rows>
Meaning FirstIn(const Rows& rows, std::string_view text) {
    const auto* const found =
        std::ranges::find_if(rows, [&](const MeaningRow& row) { return Contains(text, row.word); });
    return found != std::end(rows) ? found->meaning : Unknown;
}

/// Labels and headings are spaced out to the width of their column: "手 续 费".
std::string WithoutSpaces(std::string_view text) {
    std::string packed;
    const auto isWide = [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; };
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isBetween = text[at] == ' ' && !packed.empty() && isWide(packed.back());
        const std::size_t next = text.find_first_not_of(' ', at);
        if (isBetween && next != std::string_view::npos && isWide(text[next])) continue;
        packed += text[at];
    }
    return packed;
}

}  // namespace

Meaning MeaningOfField(std::string_view field) {
    const auto* const found = std::ranges::find(kFields, field, &MeaningRow::word);
    return found != std::end(kFields) ? found->meaning : Money;
}

Meaning MeaningOfHeading(std::string_view heading) {
    return FirstIn(kHeadings, WithoutSpaces(heading));
}

Meaning MeaningOfLabel(std::string_view label) {
    constexpr std::string_view kClient = "客户"_gbk;
    const std::string packed = WithoutSpaces(Trim(label));
    if (packed == kClient) return Identity;
    const Meaning meaning = FirstIn(kLabels, packed);
    return meaning != Unknown ? meaning : FirstIn(kHeadings, packed);
}

}  // namespace tradebill
