// A report of any content is written as the JSON library writes a tree of the same names and values.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <memory>
#include <nlohmann/json.hpp>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "base/text.h"
#include "platform/text_encoding.h"
#include "report/figure_fields.h"
#include "report/record_fields.h"
#include "report/report.h"
#include "support/gbk_text.h"
#include "support/report_json.h"
#include "support/store_fixture.h"

namespace tradebill::json_tree_test {
namespace {

using Json = nlohmann::ordered_json;

/// Texts and numbers of every kind, the same in each run.
class CAnyContent {
public:
    /// Fills each of the fields' bytes; the text ends anywhere, or not at all.
    template <class Record, std::size_t N>
    void Fill(Record& record, const TextField<Record> (&fields)[N]) {
        for (const auto& field : fields) {
            const std::string text = Text(field.bytes(record).size());
            std::memcpy(field.bytes(record).data(), text.data(), text.size());
        }
    }
    std::string Text(std::size_t longest) {
        static constexpr std::string_view kPieces[] = {"a",    "17.50", "\"",   "\\",   "/",    "\n",           "\t",
                                                       "\x01", "\x7F",  "\xFF", "\x80", "\xCD", "\xCD\xAD\xD6", " "};
        std::string text;
        while (random_() % 5 != 0) text += kPieces[random_() % std::size(kPieces)];
        text.resize(std::min(text.size(), longest));
        return text;
    }
    double Amount() {
        return static_cast<double>(static_cast<std::int32_t>(random_())) / (random_() % 2 ? 100.0 : 7e9);
    }
    std::int32_t Count() { return static_cast<std::int32_t>(random_()); }

private:
    std::mt19937 random_{5};
};

Json Value(const FigureValue& value) {
    if (const auto* const text = std::get_if<std::string_view>(&value)) return GbkToUtf8(*text);
    if (const auto* const count = std::get_if<std::int32_t>(&value)) return *count;
    return std::get<double>(value);
}

template <class Record, std::size_t N>
Json TextTree(const Record& record, const TextField<Record> (&fields)[N]) {
    Json tree = Json::object();
    for (const auto& field : fields) tree[std::string(field.name)] = GbkToUtf8(field.Text(record));
    return tree;
}

/// The digits of an amount between marks that no text has; nothing for what is no number.
Json MarkedNumber(std::string_view field) {
    std::string text(Trim(field));
    if (text.ends_with('.')) text.pop_back();
    const bool isNumber = !text.empty() && text.find_first_not_of("0123456789.") == std::string::npos &&
                          std::ranges::count(text, '.') < 2;
    return isNumber ? Json("#" + text + "#") : Json();
}

/// The tree's text, with marked digits as the numbers that they stand for.
std::string Dumped(const Json& tree) {
    std::string text = tree.dump();
    for (const std::string_view mark : {"\"#", "#\""}) {
        for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark, at)) text.erase(at, mark.size());
    }
    return text;
}

template <class Record, std::size_t N>
Json ValueTree(const Record& record, const TextField<Record> (&fields)[N]) {
    Json tree = Json::object();
    for (const auto& field : fields) {
        if (field.isAmount) tree[std::string(field.name)] = MarkedNumber(field.Text(record));
    }
    return tree;
}

template <class Record, std::size_t N>
Json RecordTree(const Record& record, const TextField<Record> (&fields)[N]) {
    Json tree = TextTree(record, fields);
    if constexpr (std::is_same_v<Record, PingDetail>) {  // no text of any content names a side
        tree["side"] = Json();
        tree["tradeSide"] = Json();
    }
    tree["values"] = ValueTree(record, fields);
    return tree;
}

template <class Owner, std::size_t N>
Json FigureTree(const Owner& owner, const FigureField<Owner> (&fields)[N], bool hasInner = true) {
    Json tree = Json::object();
    Json inner = Json::object();
    for (const auto& field : fields) {
        (field.isInner ? inner : tree)[std::string(field.name)] = Value(field.value(owner));
    }
    if (hasInner) tree["inner"] = inner;
    return tree;
}

/// A member's list as it is written: one element a line.
std::string Lines(const std::string& name, const Json& elements) {
    std::string text = ",\n\"" + name + "\": [";
    for (std::size_t i = 0; i < elements.size(); ++i) text += (i == 0 ? "\n" : ",\n") + Dumped(elements[i]);
    return text + "]";
}

/// From the money store to the account's figures.
std::string StoresIn(const std::string& text) {
    static constexpr std::string_view kFirst = "\n\"money\": ";
    const std::size_t begin = text.find(kFirst) + kFirst.size();
    return text.substr(begin, text.find(",\n\"analysis\": ") - begin);
}

class JsonTree : public StoreFixture {
protected:
    /// Adds `count` rows of any content to a store, and returns what is to be written of them.
    template <class Record, class Store, std::size_t N>
    Json AddRows(Store& store, int count, const TextField<Record> (&fields)[N]) {
        Json trees = Json::array();
        for (int i = 0; i < count; ++i) {
            Record& row = store.Add();
            content.Fill(row, fields);
            trees.push_back(RecordTree(row, fields));
        }
        return trees;
    }
    Json AddOffsets(int count) {
        Json trees = Json::array();
        for (int i = 0; i < count; ++i) {
            auto offset = std::make_unique<ContractOffset>();
            content.Fill(*offset, kOffsetFields);
            offset->LONG_VOL = content.Count();
            offset->SHORT_PL = content.Amount();
            offset->LONG_MAX_WIN = content.Amount();
            trees.push_back(TextTree(*offset, kOffsetFields));
            trees.back().update(FigureTree(*offset, kOffsetFigures));
            report.ReportDocument.Offsets.push_back(std::move(offset));
        }
        return trees;
    }
    Json AddUsages(int count) {
        Json trees = Json::array();
        for (int i = 0; i < count; ++i) {
            CDayUsage& usage = report.TradeStatistics.DayUsages.FindOrCreate(std::to_string(20240101 + i));
            usage.Margin = content.Amount();
            Json positions = Json::array();
            for (int k = 0; k < i % 4; ++k) {
                auto position = std::make_unique<ContractPosition>();
                position->Product = content.Text(60);
                position->Lots = content.Count();
                position->Margin = content.Amount();
                positions.push_back(FigureTree(*position, kPositionFigures, false));
                usage.Positions.push_back(std::move(position));
            }
            trees.push_back(FigureTree(usage, kUsageFigures));
            trees.back()["inner"]["Positions"] = positions;
        }
        return trees;
    }
    Json MoneyTree(const CMoneyStore& store) {
        Json tree = FigureTree(store, kMoneyFigures);
        tree["inner"]["ChartSizes"] = store.ChartSizes;
        tree["Records"] = Json::array();
        for (const auto& record : store.Records) {
            tree["Records"].push_back(RecordTree(*record, kMoneyFields));
            tree["Records"].back()["values"]["EXCHANGE_RATE"] = record->EXCHANGE_RATE;
        }
        return tree;
    }
    std::unique_ptr<MoneyRecord> AnyMoney() {
        auto record = std::make_unique<MoneyRecord>(ClearedMoneyRecord());
        content.Fill(*record, kMoneyFields);
        record->EXCHANGE_RATE = content.Amount();
        return record;
    }

    CAnyContent content;
};

TEST_F(JsonTree, IsWrittenForAnyContent) {
    report.MoneyStore.ClosingEquity = content.Amount();
    report.MoneyStore.StartDateText = content.Text(40);
    for (int i = 0; i < 50; ++i) report.MoneyStore.Records.push_back(AnyMoney());
    for (const char* const name : {"HKD*", "美元"}) {
        auto record = std::make_unique<MoneyRecord>(ClearedMoneyRecord());
        CopyField(record->QMJC, "5.25");
        report.CurrencyMoneyStore.Add(std::move(record), Gbk(name), MoneySource::Live);
    }
    report.ChainTable.Chains.push_back(std::make_unique<CContractChain>("cu"));
    report.ChainTable.Chains.back()->Items = {"al", Gbk("锌"), "", "\"\xFF"};
    report.AccountStatistics.MaxLoss = content.Amount();

    const std::string matches = Lines("matches", AddRows(report.MatchStore, 300, kMatchFields));
    const std::string closed = Lines("closed", AddRows(report.PingDetailStore, 300, kPingFields));
    const std::string positions = Lines("positions", AddRows(report.OpiDetailStore, 300, kOpiDetailFields));
    const std::string sums = Lines("positionSums", AddRows(report.OpiSumStore, 300, kOpiSumFields));
    const Json note = {{"BILL_DATE", "20240102"},
                       {"CASH_DATE", ""},
                       {"CASH_TYPE", "转账"},
                       {"CASH_IN", "1,000.5"},
                       {"CASH_OUT", "五"},
                       {"NOTE", "\"\xEF\xBF\xBD"},
                       {"values", {{"CASH_IN", 1000.5}, {"CASH_OUT", nullptr}}}};
    report.SideRecords.Cash.push_back({.BILL_DATE = "20240102",
                                       .CASH_TYPE = Gbk("转账"),
                                       .CASH_IN = "1,000.5",
                                       .CASH_OUT = Gbk("五"),
                                       .NOTE = "\"\xFF"});
    const std::string side =
        Lines("cash", Json::array({note})) + Lines("exercises", Json::array()) + Lines("deliveries", Json::array());
    const std::string offsets = Lines("offsets", AddOffsets(30));
    const std::string usage = Lines("usage", AddUsages(40));
    Json currencies = Json::array();
    for (const char* const name : {"HKD*", "美元"}) {
        currencies.push_back({{"name", name}, {"store", MoneyTree(*report.CurrencyMoneyStore.Find(Gbk(name)))}});
    }
    const Json chains = {{{"ItemBase", "cu"}, {"Items", {"al", "锌", "", "\"\xEF\xBF\xBD"}}}};
    const std::string expected = Dumped(MoneyTree(report.MoneyStore)) + ",\n\"currencies\": " + Dumped(currencies) +
                                 matches + closed + positions + sums + side + offsets + Lines("chains", chains) +
                                 Lines("days", Json::array()) + usage +
                                 ",\n\"account\": " + FigureTree(report.AccountStatistics, kAccountFigures).dump();

    const std::string text = StoresIn(ReportJson(report));
    EXPECT_TRUE(text == expected);
    if (text != expected) {
        const auto at = static_cast<std::size_t>(std::ranges::mismatch(text, expected).in1 - text.begin());
        const std::size_t from = at < 80 ? 0 : at - 80;
        EXPECT_EQ(text.substr(from, 160), expected.substr(from, 160)) << "at byte " << at;
    }
}

TEST_F(JsonTree, IsWrittenForNothing) {
    std::string expected = Dumped(MoneyTree(report.MoneyStore));
    for (const char* const list : {"currencies", "matches", "closed", "positions", "positionSums", "cash", "exercises",
                                   "deliveries", "offsets", "chains", "days", "usage"}) {
        expected += ",\n\"" + std::string(list) + "\": []";
    }
    expected += ",\n\"account\": " + FigureTree(report.AccountStatistics, kAccountFigures).dump();
    EXPECT_EQ(StoresIn(ReportJson(report)), expected);
}

}  // namespace
}  // namespace tradebill::json_tree_test
