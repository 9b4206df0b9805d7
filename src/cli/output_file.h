// Files that the user names for the program to write, and what may stand in their place: a device, a pipe, or "-" for
// standard output. A command makes one COutputFile of each option before it does anything, and saves it at the end.
#pragma once

#include <functional>
#include <initializer_list>
#include <iosfwd>
#include <optional>
#include <string>

#include "platform/output_target.h"

namespace tradebill {

class COutputFile {
public:
    /// Looks at the place that `given`, the value of `option`, names. Throws CUsageError if it is a folder, or if its
    /// folder isn't there.
    COutputFile(std::string option, std::string given);

    [[nodiscard]] const std::string& Option() const { return option_; }
    /// As messages name it.
    [[nodiscard]] std::string Name() const;

    [[nodiscard]] bool IsFile() const { return target_.kind == OutputTarget::Kind::File; }
    [[nodiscard]] bool IsStandardOutput() const { return target_.kind == OutputTarget::Kind::StandardOutput; }
    /// Whether this and `path` are one file.
    [[nodiscard]] bool LeadsTo(const std::string& path) const;
    /// Whether what goes to both would get mixed up, or only the last of it would stay.
    [[nodiscard]] bool IsSamePlaceAs(const COutputFile& other) const;

    /// Has `write` write all of it; it may return false to give up. A file is written beside its place and then put
    /// there in one step, on the disk itself, so that nobody meets half of it, and what was there stays if this returns
    /// false. What is no file gets all bytes as they come, but for a terminal, where those that it would obey are shown
    /// (shown_text.h). False if not all could be written.
    [[nodiscard]] bool Save(const std::function<bool(std::ostream&)>& write) const;

private:
    std::string option_;
    std::string given_;
    OutputTarget target_;
};

/// The output of an option that may have been left out. Throws as the constructor.
[[nodiscard]] std::optional<COutputFile> FindOutput(const char* option, const std::optional<std::string>& given);

/// The outputs of one call. Throws CUsageError if two lead to one place.
void CheckOutputs(std::initializer_list<std::optional<COutputFile>> outputs);

/// Where a command prints what it has to say beside `outputs`: standard output, unless one of them has it.
[[nodiscard]] std::ostream& SummaryStream(std::initializer_list<std::optional<COutputFile>> outputs);

}  // namespace tradebill
