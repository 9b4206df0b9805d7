// The parts of a zip file in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace tradebill {

enum class ZipState {
    Sound,
    Damaged,
    Encrypted,
    TooLarge,   ///< its parts unpack to more than kMostBytes, by what it says of them or in truth
    NoLibrary,  ///< what unpacks it isn't installed
};

/// libzip, which few runs need and no start shall cost, is loaded by the first of these. A shortage of memory throws
/// std::bad_alloc.
class CZipArchive {
public:
    static constexpr std::uint64_t kMostBytes = std::uint64_t{256} << 20;  ///< of all parts, unpacked

    /// REQUIRES: `bytes` outlive this.
    explicit CZipArchive(std::string_view bytes);
    ~CZipArchive();
    CZipArchive(const CZipArchive&) = delete;
    CZipArchive& operator=(const CZipArchive&) = delete;

    /// What came of opening, and of all reading up to now.
    [[nodiscard]] ZipState State() const { return state_; }

    [[nodiscard]] bool Has(const std::string& part) const;

    /// All bytes of a part with at most `most`. Empty of a larger one, and of one that isn't there or can't be read.
    [[nodiscard]] std::string Read(const std::string& part, std::size_t most);

    /// Calls onBytes for one piece of a part after the other while it returns true. False if the part isn't there or
    /// can't be read to its end.
    [[nodiscard]] bool ReadPieces(const std::string& part, const std::function<bool(std::string_view)>& onBytes);

private:
    struct Library;

    [[nodiscard]] ZipState LookAtParts() const;

    std::unique_ptr<Library> library_;
    ZipState state_ = ZipState::NoLibrary;
    std::uint64_t read_ = 0;
};

}  // namespace tradebill
