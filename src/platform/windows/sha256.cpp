#include "platform/sha256.h"

#include <windows.h>

#include <bcrypt.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <string_view>

#include "base/hex.h"

namespace tradebill {
namespace {

/// All that these calls can lack is memory.
void Require(NTSTATUS status) {
    if (status < 0) throw std::bad_alloc();
}

struct CloseAlgorithm {
    void operator()(void* handle) const { ::BCryptCloseAlgorithmProvider(handle, 0); }
};
struct DestroyHash {
    void operator()(void* handle) const { ::BCryptDestroyHash(handle); }
};

}  // namespace

struct CSha256::State {
    std::unique_ptr<void, CloseAlgorithm> algorithm;
    std::unique_ptr<void, DestroyHash> hash;
};

CSha256::CSha256() : state_(std::make_unique<State>()) {
    BCRYPT_ALG_HANDLE algorithm = nullptr;
    Require(::BCryptOpenAlgorithmProvider(&algorithm, BCRYPT_SHA256_ALGORITHM, nullptr, 0));
    state_->algorithm.reset(algorithm);
    BCRYPT_HASH_HANDLE hash = nullptr;
    Require(::BCryptCreateHash(algorithm, &hash, nullptr, 0, nullptr, 0, 0));
    state_->hash.reset(hash);
}

CSha256::~CSha256() = default;

void CSha256::Add(std::string_view bytes) {
    constexpr std::size_t kMost = std::size_t{1} << 30;  // of one call, which counts in 32 bits
    for (; !bytes.empty(); bytes.remove_prefix(std::min(bytes.size(), kMost))) {
        auto* const piece = reinterpret_cast<PUCHAR>(const_cast<char*>(bytes.data()));  // only read there
        Require(::BCryptHashData(state_->hash.get(), piece, static_cast<ULONG>(std::min(bytes.size(), kMost)), 0));
    }
}

std::string CSha256::Digest() {
    std::array<std::uint8_t, 32> digest{};
    Require(::BCryptFinishHash(state_->hash.get(), digest.data(), static_cast<ULONG>(digest.size()), 0));
    return HexText(digest);
}

}  // namespace tradebill
