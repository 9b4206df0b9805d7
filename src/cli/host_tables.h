// The program's side of the host callbacks: contract units and product codes from INI files.
#pragma once

#include <string>

#include "driver/report_request.h"

namespace tradebill {

/// Reads `[UNITS]`, product=unit, and sets ContractUnitCallback to look units up there: the contract's text up to its
/// first digit, without blanks and full-width blanks around it, to the letter; unknown products have unit 1. Throws
/// CUsageError.
void UseUnitFile(const std::string& path, GenerateBillRequest& request);

/// Reads `[PRODUCTS]`, name=code, and sets ProductNameCallback likewise. Throws CUsageError.
void UseProductFile(const std::string& path, GenerateBillRequest& request);

}  // namespace tradebill
