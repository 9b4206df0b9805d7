// Where a path leads that somebody named to be written to: some places are files, which can be replaced; what comes to
// others is gone with the first byte.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tradebill {

struct OutputTarget {
    enum class Kind {
        File,            ///< a plain file, or nothing yet; a folder too
        Straight,        ///< a device, a pipe, a socket, or another stream that the program was started with
        StandardOutput,  ///< where standard output goes, unless that is a device
    };
    Kind kind = Kind::StandardOutput;
    std::string path = {};  ///< of a file the place where all links end; else as it was named
};

/// Looks at `path` and leaves everything as it is. Links are followed, to what isn't there yet as well. Nothing if they
/// lead in a circle.
[[nodiscard]] std::optional<OutputTarget> FindOutputTarget(const std::string& path);

/// Writes to what is no file: what is there is neither made, emptied nor moved.
class CStraightOutput {
public:
    /// Waits for a reader where one is needed, as a named pipe does.
    /// REQUIRES: `target` is no file.
    explicit CStraightOutput(const OutputTarget& target);
    ~CStraightOutput();
    CStraightOutput(const CStraightOutput&) = delete;
    CStraightOutput& operator=(const CStraightOutput&) = delete;

    [[nodiscard]] bool IsOpen() const;

    // REQUIRES, of all that follows: IsOpen().

    /// Whether somebody sees what is written, on a terminal.
    [[nodiscard]] bool IsTerminal() const;

    /// Writes all of `bytes`, however long that takes. False if not all of it could be written.
    [[nodiscard]] bool Write(std::string_view bytes);

    /// Ends the work on it, which isn't open then. False if what was written may be lost (CFile::Close).
    [[nodiscard]] bool Close();

private:
    std::intptr_t handle_;  ///< the system's own
};

}  // namespace tradebill
