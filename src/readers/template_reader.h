// The reader that knows no layout of its own: the request's template says where sections begin and end and which column
// or label fills which field.
#pragma once

#include <string_view>

namespace tradebill {

class CScanListener;

/// Reads `text` by the template of the request. Returns false if a fixed reader must read the statement: there is no
/// template, or a section that it enables lacks title, terminator or delimiter (what was read before stays in the
/// stores). Throws CReportError for a change date that is no date and for columns or rows that aren't there where the
/// template must have them.
bool ReadTemplateStatement(std::string_view day, std::string_view text, CScanListener* listener = nullptr);

}  // namespace tradebill
