#include "fuzz_target.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ios>
#include <iterator>
#include <string>
#include <string_view>

#include "support/work_folder.h"

namespace tradebill {
namespace {

namespace fs = std::filesystem;

constexpr const char* kMemoryFolder = "/dev/shm";

/// What crashes leaves its folder: whoever cleans up behind many processes names one in TMPDIR.
fs::path Ground() {
    if (std::getenv("TMPDIR") != nullptr || !fs::is_directory(kMemoryFolder)) return fs::temp_directory_path();
    return kMemoryFolder;
}

}  // namespace

void Require(bool holds, std::string_view claim) {
    if (holds) return;
    std::fprintf(stderr, "doesn't hold: %.*s\n", static_cast<int>(claim.size()), claim.data());
    std::abort();
}

std::uint64_t CFuzzInput::Bytes(std::size_t count) {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < count; ++i) bits = bits << 8 | Byte();
    return bits;
}

std::uint8_t CFuzzInput::Byte() {
    if (rest_.empty()) return 0;
    const auto byte = static_cast<std::uint8_t>(rest_.front());
    rest_.remove_prefix(1);
    return byte;
}

std::int32_t CFuzzInput::Integer() {
    return static_cast<std::int32_t>(Bytes(sizeof(std::int32_t)));
}

double CFuzzInput::Amount() {
    return std::bit_cast<double>(Bytes(sizeof(double)));
}

std::string_view CFuzzInput::Text() {
    const std::string_view text = rest_.substr(0, rest_.find('\0'));
    rest_.remove_prefix(std::min(text.size() + 1, rest_.size()));
    return text;
}

std::string_view CFuzzInput::Rest() {
    const std::string_view rest = rest_;
    rest_ = {};
    return rest;
}

const std::string& FuzzFolder() {
    static const CWorkFolder folder(Ground(), "tradebill-fuzz");
    static const std::string path = folder.Path().string();
    return path;
}

std::string WriteFuzzFile(std::string_view name, std::string_view bytes) {
    std::string path = FuzzFolder() + "/" + std::string(name);
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    Require(file.good(), "a file of the fuzzer can be written");
    return path;
}

std::string BytesOfFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace tradebill
