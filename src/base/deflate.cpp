#include "base/deflate.h"

#include <zconf.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <memory>
#include <new>
#include <string_view>
#include <utility>

namespace tradebill {

struct CDeflater::Stream {
    z_stream state{};
    std::array<char, std::size_t{64} << 10> packed{};
};

CDeflater::CDeflater(Take take, int level) : take_(std::move(take)), stream_(std::make_unique<Stream>()) {
    if (::deflateInit(&stream_->state, level) != Z_OK) throw std::bad_alloc();
}

CDeflater::~CDeflater() {
    ::deflateEnd(&stream_->state);
}

void CDeflater::Add(std::string_view bytes) {
    constexpr std::size_t kMost = std::numeric_limits<uInt>::max();  // that zlib takes at once
    for (; !bytes.empty(); bytes.remove_prefix(std::min(bytes.size(), kMost))) Pack(bytes.substr(0, kMost), Z_NO_FLUSH);
}

void CDeflater::Finish() {
    Pack({}, Z_FINISH);
    ::deflateReset(&stream_->state);
}

/// zlib leaves room in what it hands out only when it has taken all that it was given.
void CDeflater::Pack(std::string_view bytes, int flush) {
    z_stream& state = stream_->state;
    state.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    state.avail_in = static_cast<uInt>(bytes.size());
    do {
        state.next_out = reinterpret_cast<Bytef*>(stream_->packed.data());
        state.avail_out = static_cast<uInt>(stream_->packed.size());
        ::deflate(&state, flush);
        const std::size_t size = stream_->packed.size() - state.avail_out;
        if (size > 0) take_({stream_->packed.data(), size});
    } while (state.avail_out == 0);
}

}  // namespace tradebill
