#include "cli/export_places.h"

#include <optional>
#include <string>

#include "export/csv_set.h"
#include "export/sqlite_export.h"
#include "platform/output_target.h"
#include "platform/paths.h"
#include "requests/out_folder.h"
#include "requests/standard_input.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

DatabasePlace DatabaseAt(const std::string& given) {
    if (!HasSqlite())
        throw CUsageError("--sqlite: this program is built without SQLite: expected --csv, which has the same tables");
    const auto target = FindOutputTarget(given);
    const bool isFile = given != kStandardStream && target && target->kind == OutputTarget::Kind::File;
    if (given.empty() || !isFile || IsFolder(target->path) || !IsFolder(FolderOf(target->path))) {
        throw CUsageError("--sqlite: expected a file in a folder that is there, found \"" + given + "\"");
    }
    const std::string path = AbsolutePath(target->path);
    const DatabaseResult look = LookAtDatabase(path);
    if (look.end == DatabaseEnd::Refused) {
        throw CUsageError("--sqlite: expected a database of tradebill, or a new file, found \"" + given +
                          "\": " + look.reason);
    }
    return {.given = given, .path = path};
}

/// The database may lie among the tables, but not in the place of one.
bool IsInPlaceOfTable(const ExportPlaces& places) {
    const std::string& database = places.database->path;
    return IsCsvName(FileNameOf(database)) && IsSameFile(FolderOf(database), *places.csvFolder);
}

}  // namespace

ExportPlaces FindExportPlaces(const std::optional<std::string>& csvFolder,
                              const std::optional<std::string>& sqliteFile) {
    if (!csvFolder && !sqliteFile) {
        throw CUsageError(HasSqlite() ? "--csv or --sqlite is missing: expected a folder or a file for the tables"
                                      : "--csv is missing: expected a folder for the tables");
    }
    ExportPlaces places;
    if (csvFolder) places.csvFolder = FolderToWrite("--csv", *csvFolder, kLongestCsvName);
    if (sqliteFile) places.database = DatabaseAt(*sqliteFile);
    if (csvFolder && sqliteFile && IsInPlaceOfTable(places)) {
        throw CUsageError("--sqlite: expected another place than that of a table of --csv, found \"" + *sqliteFile +
                          "\"");
    }
    return places;
}

}  // namespace tradebill
