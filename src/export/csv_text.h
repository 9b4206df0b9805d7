// CSV as RFC 4180 has it: UTF-8 with a mark at its start, commas, lines ended by CRLF, a head line.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "export/row_values.h"
#include "export/table.h"

namespace tradebill {

/// Puts a table down, in large pieces. Numbers are plain decimals that read back to the same double, without exponent;
/// nothing is an empty cell.
///
/// A text that opens as a formula does, which a spreadsheet would obey (= + - @, their full-width forms, a tab or the
/// end of a line), gets an apostrophe before it, and so does one that opens with an apostrophe: a reader that takes one
/// off the front has the text again.
class CCsvText final : public CRowSink {
public:
    /// `write` takes the next piece, and returns whether it is written. It isn't called again once it isn't.
    CCsvText(std::span<const ExportColumn> columns, std::function<bool(std::string_view)> write);

    void OnRow(std::span<const ExportCell> cells) override;

    /// Hands the last piece on. False if any was not written.
    [[nodiscard]] bool Finish();

private:
    void Put(const CellValue& value);
    void PutText(std::string_view text);
    void PutNumber(double number);
    void EndLine();
    void HandOn();

    std::function<bool(std::string_view)> write_;
    std::string piece_;
    bool isWritten_ = true;
    CRowValues values_;
};

}  // namespace tradebill
