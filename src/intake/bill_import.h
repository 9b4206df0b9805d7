// Statements brought from any files to the places where the module looks for them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "findings/finding.h"
#include "intake/file_plan.h"
#include "intake/present_trades.h"
#include "platform/file.h"

namespace tradebill {

struct ImportSettings {
    std::string root;                         ///< made if it is missing
    std::string user;                         ///< one folder name
    std::optional<std::string> account = {};  ///< of texts that state none
    bool isDryRun = false;                    ///< nothing is written
    bool replaces = false;                    ///< days that are there with other content are replaced
    std::string_view units = {};              ///< an INI file with [UNITS], for workbooks
    LayoutFinder otherLayouts = {};           ///< of texts that no layout of their marks reads
    /// Called once, before the first file is written into `folder`, which is there: keeps others from writing there.
    /// Returns why it can't, a sentence in UTF-8. May be empty.
    std::function<std::string(const std::string& folder)> holdFolder = {};
};

enum class ImportOutcome {
    Imported,  ///< or would be, of a dry run
    Equal,     ///< all its days are there already, with the same bytes
    Refused,
};

/// "imported"
[[nodiscard]] std::string_view OutcomeName(ImportOutcome outcome);

/// What became of one file.
struct ImportedFile {
    std::string file;  ///< as it was named
    TextLayout layout = {};
    std::string_view encoding = {};  ///< empty: unknown
    std::string account = {};
    std::vector<std::string> days = {};  ///< yyyymmdd, in their order
    std::vector<std::string> to = {};    ///< where they are then, in the same order; of a refused file those written
    ImportOutcome outcome = ImportOutcome::Refused;
    std::string text = {};               ///< why it was refused, or what was changed in it; UTF-8
    bool isUnwritten = false;            ///< refused because the target can't be written, or what is there not read
    bool isUnreadable = false;           ///< refused because this program reads no workbooks
    std::vector<Finding> findings = {};  ///< what a workbook leaves open or contradicts
};

/// Why a file that was to be read wasn't, a sentence in UTF-8.
[[nodiscard]] std::string WhyUnread(const FileContent& content);

/// Imports one file after the other. Of two contents for one day the first is taken.
class CBillImport {
public:
    /// Larger files are refused before they are read.
    static constexpr std::uint64_t kMostBytes = std::uint64_t{64} << 20;

    explicit CBillImport(ImportSettings settings);

    /// Either all days of a file are imported, each written in one step, or none, unless writing fails midway.
    [[nodiscard]] ImportedFile Import(const std::string& path);

    /// Of files that state none.
    [[nodiscard]] const std::optional<std::string>& Account() const { return settings_.account; }

    /// Where statements go; it is made with the first of them.
    [[nodiscard]] const std::string& Folder() const { return folder_; }

private:
    /// What one file brought for a day.
    struct TakenDay {
        std::uint64_t hash;
        std::size_t size;
        std::string file;
    };
    struct Target {
        const PlannedStatement* statement;
        std::string path;
        bool isThere = false;
        bool isEqual = false;
    };

    [[nodiscard]] FilePlan PlanOf(const std::string& path);
    [[nodiscard]] std::string WhyTaken(const std::vector<Target>& targets) const;
    [[nodiscard]] std::string LookAtTargets(std::vector<Target>& targets);
    [[nodiscard]] std::string WhyKept(const std::vector<Target>& targets) const;
    void Remember(const ImportedFile& file, const std::vector<Target>& targets);
    [[nodiscard]] std::string HoldFolder();
    [[nodiscard]] std::string WriteTargets(const std::vector<Target>& targets, std::vector<std::string>& written);

    ImportSettings settings_;
    std::string folder_;
    bool isFolderHeld_ = false;
    CPresentTrades trades_;
    std::map<std::string, TakenDay> taken_;  // by the path of the target
    CFileBuffer source_;
    CFileBuffer present_;
};

}  // namespace tradebill
