// What became of the files of an import, for people and as JSON.
#pragma once

#include <iosfwd>
#include <span>

#include "findings/finding.h"
#include "intake/bill_import.h"

namespace tradebill {

enum class ShownFiles { All, Refused };

/// A table with a row for each file, and how many were imported, equal and refused.
void PrintImported(std::span<const ImportedFile> files, ShownFiles shown, bool isDryRun, std::ostream& out);

/// {"schema": 1, "files": [...], "findings": [...]}, these as `check` writes them.
void WriteImportJson(std::span<const ImportedFile> files, std::span<const Finding> findings, std::ostream& out);

}  // namespace tradebill
