// A table in CSV as RFC 4180 has it, row by row.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tradebill {

/// Cuts a text into rows of fields. Ends of lines are LF or CRLF; a quoted field may hold them, and quotes twice.
class CCsvRows {
public:
    /// `text` must outlive this.
    explicit CCsvRows(std::string_view text) : text_(text) {}

    /// Goes to the next row; false behind the last. A line without a byte has one field, which is empty.
    [[nodiscard]] bool Next();

    /// Of the row, valid until the next.
    [[nodiscard]] std::span<const std::string> Fields() const { return {fields_.data(), count_}; }
    /// On which the row begins, from 1 on.
    [[nodiscard]] std::size_t Line() const { return line_; }
    /// Whether the row is cut as it should be: no quote is left open, and none stands behind a closed one or within a
    /// bare field.
    [[nodiscard]] bool IsWellFormed() const { return isWellFormed_; }

private:
    std::string& NewField();
    void TakeQuoted(std::string& field);
    void TakeBare(std::string& field);
    [[nodiscard]] bool IsAtFieldsEnd() const;

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t line_ = 0;
    std::size_t nextLine_ = 1;
    std::vector<std::string> fields_;  // those of longer rows before stay, for their memory
    std::size_t count_ = 0;
    bool isWellFormed_ = true;
};

}  // namespace tradebill
