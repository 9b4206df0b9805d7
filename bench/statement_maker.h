// Made-up statements of format 1 in any number, the same every time.
#pragma once

#include <cstdint>
#include <string>

namespace tradebill {

struct StatementShape {
    int trades = 50;
    int closed = 20;
    int positions = 10;
};

/// Makes the statements of one account, day after day; figures run on from day to day.
class CStatementMaker {
public:
    explicit CStatementMaker(StatementShape shape) : shape_(shape) {}

    /// The next day's statement: GBK with CRLF. `day` is yyyymmdd.
    [[nodiscard]] std::string Next(const std::string& day);

private:
    /// 0 to bound - 1.
    int Random(int bound);
    void AddMoney(std::string& text);
    void AddTrades(std::string& text, const std::string& day);
    void AddClosed(std::string& text, const std::string& day);
    void AddPositions(std::string& text, const std::string& day);
    void AddSummary(std::string& text);

    StatementShape shape_;
    std::uint32_t state_ = 12345;
    double equity_ = 5'000'000;
};

}  // namespace tradebill
