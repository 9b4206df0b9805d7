// From a day's statement file to the stores. The loader brings the text into memory and picks the reader of its layout
// (layout_table.h); the reader cuts the text into sections (section_scan.h), makes records of their rows (columns.h)
// and hands them over (hand_over.h). What doesn't fit is passed over in silence, unless a listener wants to know
// (scan_listener.h).
//
// fixed_layout.h is the engine of the layouts with a block of money labels; their tables stand in *_reader.cpp. The
// template reader makes the same tables from a file (statement_template.h).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tradebill {

class CScanListener;

/// Reads the statement `path` of `day` (yyyymmdd) into the stores. Returns whether there was a file to read.
bool LoadStatement(std::string_view day, const std::string& path);

/// Hands `text` to the reader of the request's layout: the foreign one, the template's, or the format's.
void ReadStatement(std::string_view day, std::string_view text, CScanListener* listener = nullptr);

/// Whether one of the fixed readers serves `format`.
[[nodiscard]] bool IsKnownFormat(std::int32_t format);

}  // namespace tradebill
