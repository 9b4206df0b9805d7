// The file in which Office wraps the streams of a document: a small file system of sectors.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tradebill {

/// Reads any bytes; whatever leads out of them or in a circle is damage.
class CCompoundFile {
public:
    explicit CCompoundFile(std::string_view bytes);

    /// Whether the file could be understood so far that streams can be asked for.
    [[nodiscard]] bool IsSound() const { return isSound_; }

    /// Whether a stream or a folder of streams bears this name.
    [[nodiscard]] bool Has(std::string_view name) const;

    /// All bytes of a stream; nothing if there is none, or if it is damaged.
    [[nodiscard]] std::optional<std::string> Stream(std::string_view name) const;

private:
    struct Entry {
        std::string name;  ///< UTF-8
        bool isStream;
        std::uint32_t first;  ///< sector
        std::uint64_t size;   ///< bytes
    };

    [[nodiscard]] bool ReadTable();
    [[nodiscard]] bool ReadEntries();
    [[nodiscard]] std::optional<std::string_view> Sector(std::uint32_t sector) const;
    [[nodiscard]] std::optional<std::string> Chain(std::uint32_t first) const;
    [[nodiscard]] std::optional<std::string> ShortChain(std::uint32_t first) const;

    std::string_view bytes_;
    std::size_t sectorSize_ = 0;
    std::size_t shortSize_ = 0;
    std::uint32_t leastSize_ = 0;           // of streams in sectors of their own
    std::vector<std::uint32_t> next_;       // by sector
    std::vector<std::uint32_t> shortNext_;  // by short sector
    std::string shortSectors_;
    std::vector<Entry> entries_;
    bool isSound_ = false;
};

}  // namespace tradebill
