// Where the user wants tables to go.
#pragma once

#include <optional>
#include <string>

namespace tradebill {

struct DatabasePlace {
    std::string given;  ///< as the user calls it
    std::string path;   ///< absolute, the place where all links end
};

struct ExportPlaces {
    std::optional<std::string> csvFolder;  ///< without separators at its end
    std::optional<DatabasePlace> database;
};

/// Of the values of --csv and --sqlite. Throws CUsageError unless there is one of them, and each is a place where
/// tables may be written: a database that holds something else is none.
[[nodiscard]] ExportPlaces FindExportPlaces(const std::optional<std::string>& csvFolder,
                                            const std::optional<std::string>& sqliteFile);

}  // namespace tradebill
