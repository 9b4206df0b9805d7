#include "platform/sha256.h"

#include <nettle/sha2.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "base/hex.h"

namespace tradebill {

struct CSha256::State {
    sha256_ctx context{};
};

CSha256::CSha256() : state_(std::make_unique<State>()) {
    sha256_init(&state_->context);
}

CSha256::~CSha256() = default;

void CSha256::Add(std::string_view bytes) {
    sha256_update(&state_->context, bytes.size(), reinterpret_cast<const std::uint8_t*>(bytes.data()));
}

std::string CSha256::Digest() {
    std::array<std::uint8_t, SHA256_DIGEST_SIZE> digest{};
    sha256_digest(&state_->context, digest.size(), digest.data());
    return HexText(digest);
}

}  // namespace tradebill
