// A statement as the fuzzer makes it, and the reading of it.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "fuzz_target.h"
#include "report/product_source.h"
#include "report/report.h"

namespace tradebill {

class CScanListener;
class CStatementTemplate;

/// What a statement is read as.
struct StatementChoice {
    std::int32_t format;
    std::int32_t kind;
};

/// One of all formats and kinds, the numbers that only templates go with among them.
[[nodiscard]] StatementChoice TakeStatementChoice(CFuzzInput& input);

/// Any units, different ones for different contracts, and a code for some names.
class CFuzzProducts final : public CProductSource {
public:
    [[nodiscard]] std::int32_t UnitOf(std::string_view contract, std::string_view delivery) const override;
    [[nodiscard]] std::optional<std::string> CodeOf(std::string_view name) const override;
};

/// A report that is asked for statements of `choice`. Products are asked if `asksProducts`.
class CFuzzReport {
public:
    CFuzzReport(const StatementChoice& choice, bool asksProducts);
    [[nodiscard]] CReport& Get() { return report_; }

private:
    CFuzzProducts products_;
    CReport report_;
};

/// Reads as a run does, by `byTemplate` if it isn't null. Returns whether no error ended the reading.
bool ReadStatement(CReport& report, std::string_view day, std::string_view text, const CStatementTemplate* byTemplate,
                   CScanListener* listener);

/// What a run does behind its last statement.
void FinishFuzzReport(CReport& report);

/// That both have the same rows, to the byte, in all stores.
void RequireSameRows(const CReport& one, const CReport& other);

/// That a text of the whole is UTF-8 and JSON.
void RequireJson(std::string_view text);

}  // namespace tradebill
