// The pieces that run once per row or per cell.
#include <benchmark/benchmark.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/number.h"
#include "base/text.h"
#include "page/page_text.h"
#include "readers/statement_loader.h"
#include "report/report.h"
#include "statement_maker.h"
#include "statistics/account_figures.h"

namespace tradebill {
namespace {

const std::string& OneStatement() {
    static const std::string text = CStatementMaker({}).Next("20240102");
    return text;
}

void SplitRows(benchmark::State& state) {
    std::vector<std::string_view> rows;
    for (auto _ : state) benchmark::DoNotOptimize(SplitText(OneStatement(), "\n", rows));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(OneStatement().size()));
}
BENCHMARK(SplitRows);

void SplitColumns(benchmark::State& state) {
    std::vector<std::string_view> rows;
    std::vector<std::string_view> columns;
    SplitText(OneStatement(), "\n", rows);
    for (auto _ : state) {
        for (const std::string_view row : rows) benchmark::DoNotOptimize(SplitText(row, " ", columns));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(OneStatement().size()));
}
BENCHMARK(SplitColumns);

void ReadOneStatement(benchmark::State& state) {
    CReport report;
    report.Request.StatementFormat = 1;
    CStatementLoader loader(report);
    for (auto _ : state) {
        loader.Read("20240102", OneStatement());
        state.PauseTiming();
        report.Clear();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(OneStatement().size()));
}
BENCHMARK(ReadOneStatement);

void ParseAmounts(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(ParseAmount("  -1234567.89"));
}
BENCHMARK(ParseAmounts);

void FormatAmounts(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(CNumberText(-1234567.891).View());
}
BENCHMARK(FormatAmounts);

void AppendRows(benchmark::State& state) {
    const std::vector<Cell> cells(9, Cell{"1234567.89", "matchspannormal"});
    std::string page;
    for (auto _ : state) {
        page.clear();
        AppendRow(page, cells, "billclr1");
        benchmark::DoNotOptimize(page.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(page.size()));
}
BENCHMARK(AppendRows);

void Drawdown(benchmark::State& state) {
    std::vector<double> equities;
    for (std::int64_t i = 0; i < state.range(0); ++i) equities.push_back(static_cast<double>(i * 7919 % 10007));
    for (auto _ : state) benchmark::DoNotOptimize(MaxDrawdownOf(equities));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Drawdown)->Arg(250)->Arg(2500);

}  // namespace
}  // namespace tradebill
