// Any bytes into one part of the system: what a target is, and what all of them share. A target reads its choices and
// texts off the front of its input (CFuzzInput), does its work in memory and says what must hold of the result
// (Require). Each stands in a file of its own, and in the table of fuzz_targets.cpp.
//
// fuzz_main.cpp gives a target to the fuzzer, replay_main.cpp runs kept inputs on any build; run.sh fuzzes them all.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tradebill {

struct FuzzTarget {
    std::string_view name;  ///< ASCII; its corpus and its dictionary bear it
    /// Comes to the same for the same bytes, whatever was run before. What is wrong ends the process.
    void (*run)(std::string_view input);
};

/// All of them, by name.
[[nodiscard]] std::span<const FuzzTarget> FuzzTargets();

/// The one called `name`, or null.
[[nodiscard]] const FuzzTarget* FindFuzzTarget(std::string_view name);

/// Ends the process, with `claim` on the error stream, unless it holds.
void Require(bool holds, std::string_view claim);

/// An input as the choices and texts that it stands for. Whatever is asked for beyond its end is 0 or empty.
class CFuzzInput {
public:
    explicit CFuzzInput(std::string_view bytes) : rest_(bytes) {}

    [[nodiscard]] bool IsEmpty() const { return rest_.empty(); }

    [[nodiscard]] std::uint8_t Byte();
    /// One of 0 to `choices` - 1. REQUIRES: there is a choice.
    [[nodiscard]] std::size_t Choice(std::size_t choices) { return Byte() % choices; }
    /// Any 32 bits.
    [[nodiscard]] std::int32_t Integer();
    /// Any 64 bits as a double: infinities and NaN as well.
    [[nodiscard]] double Amount();
    /// What stands before the next zero byte, which is passed over.
    [[nodiscard]] std::string_view Text();
    [[nodiscard]] std::string_view Rest();

private:
    [[nodiscard]] std::uint64_t Bytes(std::size_t count);

    std::string_view rest_;
};

/// One of a table's rows.
template <class Rows>
[[nodiscard]] const auto& RowOf(const Rows& rows, CFuzzInput& input) {
    return rows[input.Choice(std::size(rows))];
}

/// A folder of this process for files that must be some, in memory where the system has such; it goes with the process.
/// No separator at the end.
[[nodiscard]] const std::string& FuzzFolder();

/// Makes or empties `name` in the FuzzFolder, and returns its path.
std::string WriteFuzzFile(std::string_view name, std::string_view bytes);

/// All bytes of a file; none if it isn't there.
[[nodiscard]] std::string BytesOfFile(const std::string& path);

// One of each target's file.
void FuzzAnonymise(std::string_view input);
void FuzzReaders(std::string_view input);
void FuzzTemplate(std::string_view input);
void FuzzFindings(std::string_view input);
void FuzzDiff(std::string_view input);
void FuzzIntake(std::string_view input);
void FuzzWorkbook(std::string_view input);
void FuzzIni(std::string_view input);
void FuzzRequest(std::string_view input);
void FuzzHost(std::string_view input);
void FuzzNumbers(std::string_view input);
void FuzzText(std::string_view input);
void FuzzJson(std::string_view input);
void FuzzTables(std::string_view input);
void FuzzPage(std::string_view input);
void FuzzPicture(std::string_view input);
void FuzzChart(std::string_view input);
void FuzzRun(std::string_view input);
void FuzzRunWithPictures(std::string_view input);

}  // namespace tradebill
