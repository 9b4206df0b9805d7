// Packs bytes as a browser unpacks them, with zlib, which both systems have. The same bytes give the same packed ones.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

namespace tradebill {

class CDeflater {
public:
    using Take = std::function<void(std::string_view packed)>;

    /// zlib's levels: 1 is the fastest, 9 packs most.
    static constexpr int kUsualLevel = 6;

    /// `take` gets what is packed, piece by piece, in the format of RFC 1950 ("deflate" of a browser's
    /// DecompressionStream). Throws std::bad_alloc where there is no memory.
    explicit CDeflater(Take take, int level = kUsualLevel);
    ~CDeflater();
    CDeflater(const CDeflater&) = delete;
    CDeflater& operator=(const CDeflater&) = delete;

    void Add(std::string_view bytes);
    /// Hands out what is left, and begins anew with the next Add.
    void Finish();

private:
    struct Stream;

    void Pack(std::string_view bytes, int flush);

    Take take_;
    std::unique_ptr<Stream> stream_;
};

}  // namespace tradebill
