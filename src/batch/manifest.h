// The accounts of a batch as a file lists them: a table in CSV, or lines of JSON.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <stdexcept>
#include <string_view>

namespace tradebill {

/// What isn't a manifest. Its words begin with the line: "line 3: ...".
class CNoManifest : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What a row says under a column; UTF-8, never empty.
struct ManifestCell {
    std::string_view column;  ///< as the caller spells it
    std::string_view text;
};

/// Takes a row: the line on which it begins, from 1 on, and what it says. The cells are gone when this returns.
using OnManifestRow = std::function<void(std::size_t line, std::span<const ManifestCell> cells)>;

/// Reads lines of JSON, if the first byte that is no blank opens an object: one object a line, its values texts, whole
/// numbers, truth values ("1" and "0") or null. Else CSV as RFC 4180 has it, with either end of line and a head line of
/// columns. Either is UTF-8, with a mark at its start or none. An empty cell says nothing; a line without any is no
/// row. Columns are those of `columns`, in any case and order. Throws CNoManifest.
void ReadManifest(std::string_view text, std::span<const std::string_view> columns, const OnManifestRow& onRow);

}  // namespace tradebill
