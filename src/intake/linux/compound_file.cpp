#include "intake/linux/compound_file.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "intake/linux/little_endian.h"
#include "intake/utf16_text.h"
#include "intake/workbook_start.h"

namespace tradebill {
namespace {

constexpr std::size_t kWord = 4;
constexpr std::size_t kHeaderSize = 512;
constexpr std::size_t kEntrySize = 128;
constexpr std::uint32_t kLastSector = 0xFFFFFFFA;  // greater numbers end a chain or say that there is none
constexpr std::size_t kMostEntries = 100'000;

// Places in the header.
constexpr std::size_t kSectorShiftAt = 30;
constexpr std::size_t kShortShiftAt = 32;
constexpr std::size_t kTableSectorsAt = 44;
constexpr std::size_t kFirstEntriesAt = 48;
constexpr std::size_t kLeastSizeAt = 56;
constexpr std::size_t kFirstShortTableAt = 60;
constexpr std::size_t kFirstListAt = 68;
constexpr std::size_t kListAt = 76;

// Places in an entry.
constexpr std::size_t kNameSizeAt = 64;
constexpr std::size_t kKindAt = 66;
constexpr std::size_t kFirstAt = 116;
constexpr std::size_t kSizeAt = 120;
constexpr char kStreamKind = 2;
constexpr char kRootKind = 5;

void AppendNumbers(std::string_view sector, std::vector<std::uint32_t>& numbers) {
    for (std::size_t at = 0; at + kWord <= sector.size(); at += kWord) numbers.push_back(Word32(sector, at));
}

}  // namespace

CCompoundFile::CCompoundFile(std::string_view bytes) : bytes_(bytes) {
    constexpr unsigned kLeastShift = 7;
    constexpr unsigned kMostShift = 12;
    if (bytes.size() < kHeaderSize || !bytes.starts_with(kCompoundStart)) return;
    const unsigned sectorShift = Word16(bytes, kSectorShiftAt);
    const unsigned shortShift = Word16(bytes, kShortShiftAt);
    if (sectorShift < kLeastShift || sectorShift > kMostShift || shortShift > sectorShift || shortShift < 2) return;
    sectorSize_ = std::size_t{1} << sectorShift;
    shortSize_ = std::size_t{1} << shortShift;
    leastSize_ = Word32(bytes, kLeastSizeAt);
    isSound_ = ReadTable() && ReadEntries();
}

bool CCompoundFile::Has(std::string_view name) const {
    return std::ranges::find(entries_, name, &Entry::name) != entries_.end();
}

std::optional<std::string> CCompoundFile::Stream(std::string_view name) const {
    const auto entry = std::ranges::find_if(
        entries_, [&](const Entry& candidate) { return candidate.isStream && candidate.name == name; });
    if (entry == entries_.end()) return std::nullopt;
    auto stream = entry->size < leastSize_ ? ShortChain(entry->first) : Chain(entry->first);
    if (!stream || stream->size() < entry->size) return std::nullopt;
    stream->resize(entry->size);
    return stream;
}

std::optional<std::string_view> CCompoundFile::Sector(std::uint32_t sector) const {
    const std::size_t at = (std::size_t{sector} + 1) * sectorSize_;
    // The last sector of a file may be cut where its stream ends.
    if (sector >= kLastSector || at >= bytes_.size()) return std::nullopt;
    return bytes_.substr(at, sectorSize_);
}

/// The sectors that say which sector follows which are listed in the header, and in sectors of their own behind it.
bool CCompoundFile::ReadTable() {
    const std::size_t mostSectors = bytes_.size() / sectorSize_;
    const std::size_t tableSectors = Word32(bytes_, kTableSectorsAt);
    if (tableSectors > mostSectors) return false;
    std::vector<std::uint32_t> list;
    AppendNumbers(bytes_.substr(kListAt, kHeaderSize - kListAt), list);
    std::uint32_t more = Word32(bytes_, kFirstListAt);
    while (list.size() < tableSectors) {
        const auto sector = Sector(more);
        if (!sector || sector->size() < sectorSize_) return false;
        AppendNumbers(*sector, list);
        more = list.back();
        list.pop_back();
    }
    for (std::size_t i = 0; i < tableSectors; ++i) {
        const auto sector = Sector(list[i]);
        if (!sector) return false;
        AppendNumbers(*sector, next_);
    }
    return true;
}

bool CCompoundFile::ReadEntries() {
    const auto folder = Chain(Word32(bytes_, kFirstEntriesAt));
    if (!folder || folder->size() / kEntrySize > kMostEntries) return false;
    for (std::size_t at = 0; at + kEntrySize <= folder->size(); at += kEntrySize) {
        const std::string_view entry = std::string_view(*folder).substr(at, kEntrySize);
        const std::size_t nameSize = Word16(entry, kNameSizeAt);  // with its zero
        if (nameSize < 2 || nameSize > kNameSizeAt) continue;
        const std::uint32_t first = Word32(entry, kFirstAt);
        if (entry[kKindAt] == kRootKind && Word32(entry, kSizeAt) > 0) {
            auto sectors = Chain(first);
            if (!sectors) return false;
            shortSectors_ = *std::move(sectors);
        }
        entries_.push_back({.name = Utf16ToUtf8(entry.substr(0, nameSize - 2), ByteOrder::LittleEndian).value_or(""),
                            .isStream = entry[kKindAt] == kStreamKind,
                            .first = first,
                            .size = Word32(entry, kSizeAt)});
    }
    const std::uint32_t firstShort = Word32(bytes_, kFirstShortTableAt);
    if (firstShort >= kLastSector) return true;
    const auto table = Chain(firstShort);
    if (table) AppendNumbers(*table, shortNext_);
    return table.has_value();
}

std::optional<std::string> CCompoundFile::Chain(std::uint32_t first) const {
    std::string stream;
    for (std::uint32_t sector = first; sector < kLastSector; sector = next_[sector]) {
        const auto part = Sector(sector);
        if (!part || sector >= next_.size() || stream.size() > bytes_.size()) return std::nullopt;
        stream += *part;
    }
    return stream;
}

std::optional<std::string> CCompoundFile::ShortChain(std::uint32_t first) const {
    std::string stream;
    for (std::uint32_t sector = first; sector < kLastSector; sector = shortNext_[sector]) {
        const std::size_t at = std::size_t{sector} * shortSize_;
        const bool isInside = sector < shortNext_.size() && at < shortSectors_.size();
        if (!isInside || stream.size() > shortSectors_.size()) return std::nullopt;
        stream += shortSectors_.substr(at, shortSize_);
    }
    return stream;
}

}  // namespace tradebill
