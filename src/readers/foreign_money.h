// The money blocks of a foreign statement: one column of figures per currency.
#pragma once

#include <string_view>

#include "readers/record_sink.h"
#include "readers/section_scan.h"

namespace tradebill {

/// Reads all blocks. The first currency of the first block is the account itself, and goes to `sink` as such too; every
/// currency goes there under its name.
void ReadForeignMoney(std::string_view day, CSectionScan& scan, CRecordSink& sink);

}  // namespace tradebill
