// What tests of the bill sheet readers share: statements put together sheet by sheet, and the day's figures.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "base/report_error.h"
#include "readers/reader_fixture.h"

namespace tradebill {

using BillLines = std::vector<std::string>;

inline constexpr std::string_view kBillDay = "20240105";

/// All `sheets` one below the other.
inline BillLines Joined(std::initializer_list<BillLines> sheets) {
    BillLines all;
    for (const BillLines& sheet : sheets) all.insert(all.end(), sheet.begin(), sheet.end());
    return all;
}

/// A statement of `lines` (UTF-8), each ended by CRLF.
inline std::string BillOf(const BillLines& lines) {
    std::string text;
    for (const std::string& line : lines) text += Gbk(line) + "\r\n";
    return text;
}

/// A row of `count` columns, each "1".
inline std::string Ones(std::size_t count) {
    std::string row = "1";
    for (std::size_t column = 1; column < count; ++column) row += " 1";
    return row;
}

class BillSheetFixture : public ReaderFixture {
protected:
    /// The error that reading raises, or 0.
    template <class Call>
    static std::uint32_t ErrorOf(Call call) {
        try {
            call();
        } catch (const CReportError& error) {
            return error.Code();
        }
        return 0;
    }

    /// A copy of the day's figures; zeros if there are none.
    DayFigure FigureOf(std::string_view day) {
        const DayFigure* const found = report.TradeStatistics.DayFigures.Find(day);
        return found == nullptr ? DayFigure{} : *found;
    }

    /// The net positions of the day, spelled out: product, side, lots and margin.
    Texts PositionsOf(std::string_view day) {
        Texts texts;
        const CDayUsage* const usage = report.TradeStatistics.DayUsages.Find(day);
        if (usage == nullptr) return texts;
        for (const auto& position : usage->Positions) {
            texts.push_back(position->Product + " " + GbkToUtf8(position->Side) + " " + std::to_string(position->Lots) +
                            " " + std::to_string(position->Margin));
        }
        return texts;
    }
};

}  // namespace tradebill
