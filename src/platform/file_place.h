// Bringing a finished file to where others look for it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tradebill {

/// Moves files that were made alike, one after the other, as PutInPlace does; what they have in common is asked for
/// once.
class CFilePlaces {
public:
    [[nodiscard]] bool Put(const std::string& from, const std::string& to);

    /// Whose a file is and who may do what with it, as the system has it.
    struct Rights {
        std::uint32_t group;
        std::uint32_t mode;
    };
    /// A folder, and the group that new files in it get; nothing: their own.
    struct Folder {
        std::string path;
        std::optional<std::uint32_t> group;
    };

private:
    std::optional<Rights> made_;
    std::optional<Folder> folder_;
};

/// Moves the file `from` to `to`, on the same volume, in one step: whoever opens `to` finds the old file or the new
/// one, whole. A new file has the rights that one made there would have; one that replaces another takes over its mode,
/// and its group where that is allowed. A link at `to` is replaced and not followed; a folder or a device is not. Where
/// somebody holds the old file open in a way that keeps it in its place, as Windows lets him, it is written over there.
/// False, with the system's reason where it has one, if `to` isn't the new file then.
[[nodiscard]] inline bool PutInPlace(const std::string& from, const std::string& to) {
    return CFilePlaces().Put(from, to);
}

/// Writes the bytes of `from` to `to`, which is made or emptied first. False, with the system's reason, if it doesn't
/// hold them all then.
[[nodiscard]] bool CopyOver(const std::string& from, const std::string& to);

/// Whether both files are there and hold the same bytes. It takes no memory of the heap, so that it can be asked where
/// there is none. False where one of them can't be read.
[[nodiscard]] bool HoldSameBytes(const std::string& one, const std::string& other);

}  // namespace tradebill
