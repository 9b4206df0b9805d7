// The reader that knows no layout of its own: the request's template says where sections begin and end and which column
// or label fills which field.
#pragma once

#include "readers/statement_text.h"

namespace tradebill {

/// Reads `statement` by its template. Returns false if a fixed reader must read the statement: there is no template, or
/// a section that it enables lacks title, terminator or delimiter (what was read before stays in the report). Throws
/// CReportError for a change date that is no date and for columns or rows that aren't there where the template must
/// have them.
bool ReadTemplateStatement(const StatementText& statement, CReport& report);

}  // namespace tradebill
