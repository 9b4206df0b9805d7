// Whatever bytes a statement holds, reading it ends, and what it leaves in the stores is well formed.
#include "readers/statement_loader.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "readers/reader_fixture.h"
#include "report/statement_format.h"

namespace tradebill::random_bytes_test {
namespace {

constexpr std::int32_t kFormats[] = {0, 1, 2, 3, 6, 201, 5, -1};
constexpr std::string_view kDay = "20240105";

/// Small statements of all layouts, each with all its sections.
const std::vector<std::string>& WholeStatements() {
    static const std::vector<std::string> texts = {
        Statement({"结算单",
                   "日  期:20240102",
                   "资金类别",
                   "---------",
                   "客户权益: 5 权利金收入: 2.5",
                   "手续费: 1",
                   "---------",
                   "成交记录",
                   "---------",
                   "成交日期",
                   "20240102 上期所 沪铜 2402 买 开 1 2 3 4 5 投",
                   "共 1条",
                   "平仓明细",
                   "---------",
                   "平仓日期",
                   "20240102 上期所 沪铜 2402 卖 1 2 20240101 3 4 5 投 6",
                   "共 1条",
                   "持仓明细",
                   "---------",
                   "交易所",
                   "上期所 沪铜 2402 20240102 买 投 1 2 3 4 5 6 7",
                   "共 1条"}),
        Statement({"结算单",
                   "日  期:20240102",
                   "资金状况",
                   "---------",
                   "客户权益: 5 可用资金: 3",
                   "手续费: 1",
                   "---------",
                   "成交记录",
                   "---------",
                   "成交日期",
                   "20240102 上期所 cu 2402 买 开 1 2 3 4 5 投",
                   "共 1条",
                   "平仓明细",
                   "---------",
                   "平仓日期",
                   "20240102 上期所 cu 2402 77 卖 1 20240101 3 4 5 6",
                   "共 1条",
                   "持仓明细",
                   "---------",
                   "交易所",
                   "上期所 cu 2402 20240102 买 投 1 2 3 4 5 6 7",
                   "共 1条",
                   "持仓汇总",
                   "---------",
                   "交易所",
                   "上期所 cu 2402 1 2 3 4 5 6 7 8 9 投",
                   "共 1条"}),
        Statement({"结算单",     "资金状况",
                   "----------", "客户权益: 5 权利金收支: 2",
                   "手续费: 1",  "----------",
                   "成交记录",   "----------",
                   "成交日期",   "20240102 大商所 豆粕 m2405 买 1 2 开 3 4 5 投",
                   "共 1条",     "----------",
                   "平仓明细",   "----------",
                   "平仓日期",   "20240102 大商所 豆粕 m2405 卖 1 20240101 2 3 4 5",
                   "共 1条",     "----------",
                   "持仓明细",   "----------",
                   "交易所",     "大商所 豆粕 m2405 20240102 买 投 1 2 3 4 5 6 7",
                   "共 1条",     "----------"}),
        Statement({"制表",
                   "制表时间：20240102",
                   "资金状况",
                   "=========",
                   "客户权益： 5",
                   "手 续 费： 1",
                   "成交记录",
                   "---------",
                   "|成交日期|",
                   "---------",
                   "|20240102|大商所|m|2405|买|投|1|2|3|开|4|5|",
                   "---------",
                   "|共1条|",
                   "平仓明细",
                   "---------",
                   "|平仓日期|",
                   "---------",
                   "|20240102|大商所|m|2405|20240101|卖|1|2|3|4|5|",
                   "---------",
                   "|共1条|",
                   "持仓明细",
                   "---------",
                   "|交易所|",
                   "---------",
                   "|大商所|m|2405|20240102|投|买|1|2|3|4|5|6|7|",
                   "---------",
                   "|共1条|",
                   "持仓汇总",
                   "=======",
                   "|品种|",
                   "|(手)|",
                   "|m|2405|1|2|3|4|5|6|7|8|投|",
                   "---------"}),
    };
    return texts;
}

/// What statements are made of.
const std::vector<std::string>& Words() {
    static const std::vector<std::string> words = [] {
        std::vector<std::string> list = {"\n",        "\n",
                                         "\n",        "\r\n",
                                         " ",         " ",
                                         " ",         "|",
                                         "|",         "\t",
                                         "---------", "----------",
                                         "0",         "1",
                                         "-2.5",      "99999999999999999999",
                                         "1e400",     std::string(100, 'x')};
        for (const char* const word : {"资金状况",
                                       "资金类别",
                                       "成交记录",
                                       "平仓明细",
                                       "持仓明细",
                                       "持仓汇总",
                                       "共",
                                       "共",
                                       "日  期:20240102",
                                       "制表时间：20240102",
                                       "权利金",
                                       "权利金收入",
                                       "客户权益:",
                                       "保证金占用:",
                                       "手续费:",
                                       "手",
                                       "续",
                                       "出",
                                       "入",
                                       "买",
                                       "卖",
                                       "可用资金",
                                       "当日结存:",
                                       "a b c d e f 买 1 2 3 4 5 6 7",
                                       "1|2|3|4|5|6|7|8|9|10|11|12|13|14"}) {
            list.push_back(Gbk(word));
        }
        return list;
    }();
    return words;
}

class RandomStatements : public ReaderFixture {
protected:
    std::size_t Pick(std::size_t bound) { return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random_); }

    std::string Bytes(std::size_t size) {
        std::string text(size, '\0');
        for (char& byte : text) byte = static_cast<char>(Pick(256));
        return text;
    }

    std::string WordText(std::size_t count) {
        std::string text;
        for (std::size_t i = 0; i < count; ++i) text += Words()[Pick(Words().size())];
        return text;
    }

    /// `text` with a few bytes, pieces or rows changed.
    std::string Mutated(std::string text) {
        for (std::size_t changes = 1 + Pick(4); changes > 0 && !text.empty(); --changes) {
            const std::size_t at = Pick(text.size());
            const std::string piece = text.substr(Pick(text.size()), Pick(60));
            switch (Pick(6)) {
                case 0:
                    text[at] = static_cast<char>(Pick(256));
                    break;
                case 1:
                    text.erase(at, 1 + Pick(40));
                    break;
                case 2:
                    text.insert(at, piece);
                    break;
                case 3:
                    text.insert(at, Words()[Pick(Words().size())]);
                    break;
                case 4:
                    text.resize(at);
                    break;
                default:
                    text.replace(at, piece.size(), piece);
            }
        }
        return text;
    }

    template <class Record, std::size_t N>
    static void ExpectWellFormed(const Record& record, const TextField<Record> (&fields)[N]) {
        for (const auto& field : fields) {
            const std::span<char> bytes = field.bytes(const_cast<Record&>(record));
            ASSERT_NE(std::memchr(bytes.data(), '\0', bytes.size()), nullptr) << field.name;
            EXPECT_EQ(field.Text(record).find('\n'), std::string_view::npos) << field.name;
        }
    }

    template <class Store, class Fields>
    static void ExpectWellFormedRows(const Store& store, const Fields& fields) {
        for (const auto& row : store.Rows) {
            ExpectWellFormed(row, fields);
            EXPECT_STREQ(row.BILL_DATE, store.Rows.front().BILL_DATE);
        }
    }

    template <class Store>
    static void ExpectSides(const Store& store) {
        for (const auto& row : store.Rows) EXPECT_TRUE(row.BID == Gbk("买") || row.BID == Gbk("卖"));
    }

    void ExpectWellFormedStores() {
        EXPECT_LE(report.MoneyStore.Count(), 1);
        for (const auto& record : report.MoneyStore.Records) ExpectWellFormed(*record, kMoneyFields);
        EXPECT_EQ(report.TradeStatistics.DayFigures.Days.size(), report.MoneyStore.Records.size());
        ExpectWellFormedRows(report.MatchStore, kMatchFields);
        ExpectWellFormedRows(report.PingDetailStore, kPingFields);
        ExpectWellFormedRows(report.OpiDetailStore, kOpiDetailFields);
        ExpectWellFormedRows(report.OpiSumStore, kOpiSumFields);
        ExpectSides(report.PingDetailStore);
        ExpectSides(report.OpiSumStore);
        std::int32_t folded = 0;
        for (const auto& offset : report.ReportDocument.Offsets) folded += offset->LONG_COUNT + offset->SHORT_COUNT;
        EXPECT_EQ(folded, report.PingDetailStore.Count());
        money_ += report.MoneyStore.Count();
        rows_ += report.MatchStore.Count() + report.PingDetailStore.Count() + report.OpiDetailStore.Count() +
                 report.OpiSumStore.Count();
    }

    void ReadInAllFormats(const std::string& text) {
        for (const std::int32_t format : kFormats) {
            MakeReport(format);
            ReadStatement(kDay, text);
            ExpectWellFormedStores();
            EXPECT_TRUE(IsKnownFormat(format) || NothingRead());
        }
    }

    /// All that the readers of format 1 leave.
    std::vector<Fields> AllRead(const std::string& text) {
        MakeReport(1);
        ReadStatement(kDay, text);
        std::vector<Fields> all = FieldsOfAll(report.MoneyStore.Records);
        for (const auto& rows : {FieldsOfAll(report.MatchStore.Rows), FieldsOfAll(report.PingDetailStore.Rows),
                                 FieldsOfAll(report.OpiDetailStore.Rows), FieldsOfAll(report.OpiSumStore.Rows)}) {
            all.insert(all.end(), rows.begin(), rows.end());
        }
        return all;
    }

    std::mt19937 random_{20240102};
    int money_ = 0;  ///< records seen in all trials
    int rows_ = 0;
};

TEST_F(RandomStatements, AreReadFromAnyBytes) {
    for (int i = 0; i < 60; ++i) ReadInAllFormats(Bytes(Pick(2000)));
    EXPECT_EQ(rows_, 0);
}

TEST_F(RandomStatements, AreReadFromAnyWords) {
    for (int i = 0; i < 60; ++i) ReadInAllFormats(WordText(Pick(300)));
    EXPECT_GT(money_, 20);
    EXPECT_GT(rows_, 20);
}

TEST_F(RandomStatements, AreReadFromBrokenStatements) {
    for (int i = 0; i < 40; ++i) {
        for (const std::string& text : WholeStatements()) ReadInAllFormats(Mutated(text));
    }
    EXPECT_GT(money_, 100);
    EXPECT_GT(rows_, 300);
}

TEST_F(RandomStatements, AreReadFromEveryBeginningOfAStatement) {
    for (const std::string& text : WholeStatements()) {
        for (std::size_t size = 0; size < text.size(); size += 7) ReadInAllFormats(text.substr(0, size));
    }
}

TEST_F(RandomStatements, ReadTheSameWithEitherLineEnd) {
    std::size_t records = 0;
    for (int i = 0; i < 200; ++i) {
        const std::string text = i % 2 == 0 ? WordText(200) : Mutated(WholeStatements()[Pick(4)]);
        std::string withReturns;
        for (const char byte : text) withReturns += byte == '\n' ? std::string("\r\n") : std::string(1, byte);
        const std::vector<Fields> read = AllRead(text);
        EXPECT_EQ(AllRead(withReturns), read);
        records += read.size();
    }
    EXPECT_GT(records, 100U);
}

TEST_F(RandomStatements, ReadARowOfVeryManyColumns) {
    std::string columns;
    for (int i = 0; i < 200000; ++i) columns += i % 2 == 0 ? "1 " : "1|";
    std::string text = WholeStatements()[1];
    text.insert(text.find(Gbk("共")), columns + "\r\n");
    ReadInAllFormats(text);
    EXPECT_GT(rows_, 0);
}

}  // namespace
}  // namespace tradebill::random_bytes_test
