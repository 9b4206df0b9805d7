#include "export/csv_set.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "export/csv_text.h"
#include "export/table.h"
#include "export/table_list.h"
#include "platform/file.h"
#include "platform/file_place.h"
#include "platform/paths.h"
#include "platform/system_error.h"

namespace tradebill {
namespace {

constexpr std::string_view kEnding = ".csv";

/// A file of the set, and the names beside it under which it is made and the one of before waits. All are put together
/// at the start: they are cleared up where there is no memory for a name any more.
struct CsvFile {
    explicit CsvFile(const std::string& folder, std::string_view table)
        : path(folder + "/" + std::string(table) + std::string(kEnding)),
          part(path + ".part"),
          older(path + ".older") {}

    std::string path;
    std::string part;
    std::string older;
    bool hasOlder = false;
    bool isOnItsWay = false;  ///< begun to be put into its place, as long as not all of the set are there
    bool isLost = false;      ///< the one of before could not get back to its place
};

CsvProblem ProblemAt(const std::string& path) {
    return {path, SystemErrorText(LastSystemError())};
}

bool WritePart(const CsvFile& file, const ExportTable& table, const ExportSource& source) {
    CFile part(file.part, FileMode::Create);
    if (!part.IsOpen()) return false;
    CCsvText text(table.columns, [&](std::string_view piece) { return part.Write(piece); });
    table.walk(source, text);
    return text.Finish() && part.MakeDurable() && part.Close();
}

/// Leaves the file where it is, and gives it the second name.
bool KeepOlder(CsvFile& file) {
    if (!IsPlainFile(file.path) && !IsLink(file.path)) return true;
    file.hasOlder = LinkFile(file.path, file.older) || CopyOver(file.path, file.older);
    return file.hasOlder;
}

/// Puts a file of before back into its place, which it may not have left. False if it stays beside it.
bool PutBack(const CsvFile& file) {
    if (IsSameFile(file.older, file.path) || HoldSameBytes(file.older, file.path)) return true;
    return MoveOver(file.older, file.path) || CopyOver(file.older, file.path);
}

/// What may pass is tried twice.
bool RemoveSurely(const std::string& path) {
    for (int tries = 0; tries < 2; ++tries) {
        if (RemoveFile(path)) return true;
    }
    return false;
}

/// The set on its way to its places. Whatever isn't put there in full is taken back.
class CCsvSet {
public:
    CCsvSet(const std::string& folder, std::span<const ExportTable> tables) : tables_(tables) {
        for (const ExportTable& table : tables) files_.emplace_back(folder, table.name);
        RemoveBeside();
    }
    ~CCsvSet() {
        TakeBack();
        ForEachBeside([](const std::string& path) { RemoveSurely(path); });
    }
    CCsvSet(const CCsvSet&) = delete;
    CCsvSet& operator=(const CCsvSet&) = delete;

    CsvProblems Save(const ExportSource& source) {
        CsvProblems problems;
        problems.unwritten = WriteAll(source);
        if (!problems.unwritten) problems.unwritten = PutAll();
        TakeBack();
        problems.leftover = RemoveBeside();
        return problems;
    }

private:
    std::optional<CsvProblem> WriteAll(const ExportSource& source) {
        for (std::size_t i = 0; i < files_.size(); ++i) {
            ForgetSystemError();
            if (IsOtherThanFile(files_[i].path)) return CsvProblem{files_[i].path, "something else is there"};
            if (!WritePart(files_[i], tables_[i], source)) return ProblemAt(files_[i].path);
        }
        for (CsvFile& file : files_) {
            ForgetSystemError();
            if (!KeepOlder(file)) return ProblemAt(file.path);
        }
        return std::nullopt;
    }

    std::optional<CsvProblem> PutAll() {
        CFilePlaces places;
        for (CsvFile& file : files_) {
            ForgetSystemError();
            file.isOnItsWay = true;
            if (!places.Put(file.part, file.path)) return ProblemAt(file.path);
        }
        for (CsvFile& file : files_) file.isOnItsWay = false;
        return std::nullopt;
    }

    /// Whatever was to be put, unless all was. It needs no memory but for what can only be copied back.
    void TakeBack() {
        for (CsvFile& file : files_) {
            if (!file.isOnItsWay) continue;
            file.isOnItsWay = false;
            if (file.hasOlder) {
                file.isLost = !PutBack(file);
            } else {
                RemoveSurely(file.path);
            }
        }
    }

    /// The first of those that can't be removed.
    std::optional<CsvProblem> RemoveBeside() {
        std::optional<CsvProblem> left;
        ForEachBeside([&](const std::string& path) {
            ForgetSystemError();
            if (!RemoveSurely(path) && !left) left = ProblemAt(path);
        });
        return left;
    }

    template <class Action>
    void ForEachBeside(const Action& action) {
        for (const CsvFile& file : files_) {
            action(file.part);
            if (!file.isLost) action(file.older);
        }
    }

    std::span<const ExportTable> tables_;
    std::vector<CsvFile> files_;
};

}  // namespace

bool IsCsvName(std::string_view name) {
    if (!name.ends_with(kEnding)) return false;
    name.remove_suffix(kEnding.size());
    return std::ranges::find(Tables(), name, &ExportTable::name) != Tables().end();
}

CsvProblems SaveCsvSet(const std::string& folder, const ExportSource& source) {
    return CCsvSet(folder, Tables()).Save(source);
}

}  // namespace tradebill
