// Reads an account, prints its days, and saves a chart: host ROOT PICTURE
#include <cstdio>
#include <fstream>

#include "tradebill.hpp"

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    try {
        tradebill::Report report;
        TradeBillRequest request{};
        request.RootUtf8 = argv[1];
        report.Read(request);
        const tradebill::Table days = report.Rows("days");
        const auto* const day = days.Texts(tradebill::ColumnOf("days", "day"));
        const auto* const equity = days.Numbers(tradebill::ColumnOf("days", "equity"));
        for (std::int64_t row = 0; row < days.RowCount(); ++row) std::printf("%s %.2f\n", day[row], equity[row]);
        std::ofstream picture(argv[2], std::ios::binary);
        picture << report.Png("equity").View();
        return picture.flush() ? 0 : 1;
    } catch (const tradebill::Error& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
