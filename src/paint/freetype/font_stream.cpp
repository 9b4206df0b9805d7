#include "paint/freetype/font_stream.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>

#include "base/shortage.h"
#include "paint/freetype/font_memory.h"
#include "platform/file.h"
#include "platform/system_error.h"

namespace tradebill {
namespace {

/// The pages of a file that were read last. A glyph is found through three tables, each read where the glyph before it
/// was: their pages stay.
class CFontFile {
public:
    explicit CFontFile(const char* path) : file_(path, FileMode::Read) {}

    [[nodiscard]] bool IsOpen() const { return file_.IsOpen(); }
    [[nodiscard]] std::optional<std::uint64_t> Size() const { return file_.Size(); }

    /// Fills `buffer` from `offset` on; returns the bytes read.
    std::size_t Read(std::uint64_t offset, char* buffer, std::size_t size) {
        if (size > kPageSize) return ReadPart(offset, buffer, size);
        std::size_t done = 0;
        while (done < size) {
            const Page& page = PageAt((offset + done) / kPageSize);
            const std::size_t from = (offset + done) % kPageSize;
            if (from >= page.size) break;
            const std::size_t copied = std::min(size - done, page.size - from);
            std::memcpy(buffer + done, page.bytes.data() + from, copied);
            done += copied;
        }
        return done;
    }

private:
    static constexpr std::size_t kPageSize = 4096;
    static constexpr std::size_t kPages = 16;
    static constexpr std::uint64_t kNoPage = ~std::uint64_t{0};

    struct Page {
        std::uint64_t number = kNoPage;  ///< in the file
        std::size_t size = 0;            ///< less than a page at the end of the file
        std::array<char, kPageSize> bytes;
    };

    /// As CFile does. What can't be read is noted, and no bytes are told then.
    std::size_t ReadPart(std::uint64_t offset, char* buffer, std::size_t size) {
        const auto got = file_.ReadAt(offset, buffer, size);
        if (!got) NoteFontShortage();
        return got.value_or(0);
    }

    const Page& PageAt(std::uint64_t number) {
        Page& page = pages_[number % kPages];
        if (page.number != number) {
            page.number = kNoPage;
            page.size = ReadPart(number * kPageSize, page.bytes.data(), page.bytes.size());
            if (page.size > 0) page.number = number;
        }
        return page;
    }

    CFile file_;
    std::array<Page, kPages> pages_;
};

struct FontStream {
    explicit FontStream(const char* path) : file(path) {}

    FT_StreamRec record{};
    CFontFile file;
};

FontStream* StreamOf(FT_Stream stream) {
    return static_cast<FontStream*>(stream->descriptor.pointer);
}

/// Of no bytes it is asked whether the place is in the file, which 0 affirms.
unsigned long Read(FT_Stream stream, unsigned long offset, unsigned char* buffer, unsigned long count) {
    if (count == 0) return offset > stream->size ? 1 : 0;
    return static_cast<unsigned long>(StreamOf(stream)->file.Read(offset, reinterpret_cast<char*>(buffer), count));
}

void Close(FT_Stream stream) {
    delete StreamOf(stream);
}

}  // namespace

FT_Stream OpenFontStream(const char* path) {
    auto stream = std::make_unique<FontStream>(path);
    const auto size = stream->file.IsOpen() ? stream->file.Size() : std::nullopt;
    if (!size) {
        if (MayPass(LastSystemError())) throw CShortage("a font file can't be opened for now");
        return nullptr;
    }
    stream->record.size = static_cast<unsigned long>(*size);
    stream->record.descriptor.pointer = stream.get();
    stream->record.read = Read;
    stream->record.close = Close;
    return &stream.release()->record;
}

}  // namespace tradebill
