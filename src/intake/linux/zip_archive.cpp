#include "intake/linux/zip_archive.h"

#include <dlfcn.h>
#include <zip.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <new>
#include <string>
#include <string_view>

namespace tradebill {
namespace {

struct LibraryCloser {
    void operator()(void* library) const { ::dlclose(library); }
};

template <class Function>
bool Find(void* library, const char* name, Function*& function) {
    function = reinterpret_cast<Function*>(::dlsym(library, name));
    return function != nullptr;
}

/// A shortage of memory is no damage, be it of the library or of the one that unpacks for it.
void ThrowIfShort(const zip_error_t* error) {
    constexpr int kUnpackerIsShort = -4;  // Z_MEM_ERROR
    const bool isOfUnpacker = error->zip_err == ZIP_ER_ZLIB && error->sys_err == kUnpackerIsShort;
    if (error->zip_err == ZIP_ER_MEMORY || isOfUnpacker) throw std::bad_alloc();
}

}  // namespace

/// The library's functions, and what is open of it.
struct CZipArchive::Library {
    std::unique_ptr<void, LibraryCloser> handle;
    decltype(&zip_source_buffer_create) sourceBufferCreate = nullptr;
    decltype(&zip_source_free) sourceFree = nullptr;
    decltype(&zip_open_from_source) openFromSource = nullptr;
    decltype(&zip_discard) discard = nullptr;
    decltype(&zip_get_num_entries) getNumEntries = nullptr;
    decltype(&zip_stat_index) statIndex = nullptr;
    decltype(&zip_name_locate) nameLocate = nullptr;
    decltype(&zip_fopen) open = nullptr;
    decltype(&zip_fread) read = nullptr;
    decltype(&zip_fclose) close = nullptr;
    decltype(&zip_get_error) getError = nullptr;
    decltype(&zip_file_get_error) fileError = nullptr;
    zip_t* archive = nullptr;

    Library() : handle(::dlopen(TRADEBILL_ZIP_LIBRARY, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE)) {
        void* const library = handle.get();
        const bool hasAll =
            library != nullptr && Find(library, "zip_source_buffer_create", sourceBufferCreate) &&
            Find(library, "zip_source_free", sourceFree) && Find(library, "zip_open_from_source", openFromSource) &&
            Find(library, "zip_discard", discard) && Find(library, "zip_get_num_entries", getNumEntries) &&
            Find(library, "zip_stat_index", statIndex) && Find(library, "zip_name_locate", nameLocate) &&
            Find(library, "zip_fopen", open) && Find(library, "zip_fread", read) &&
            Find(library, "zip_fclose", close) && Find(library, "zip_get_error", getError) &&
            Find(library, "zip_file_get_error", fileError);
        if (!hasAll) handle.reset();
    }

    /// Whether `bytes` are an archive.
    bool Open(std::string_view bytes) {
        zip_error_t error{};
        errno = 0;
        zip_source_t* const source = sourceBufferCreate(bytes.data(), bytes.size(), 0, &error);
        if (source != nullptr) archive = openFromSource(source, ZIP_RDONLY, &error);
        if (archive != nullptr) return true;
        if (errno == ENOMEM) error.zip_err = ZIP_ER_MEMORY;  // it doesn't always say so itself
        if (source != nullptr) sourceFree(source);
        ThrowIfShort(&error);
        return false;
    }
};

CZipArchive::CZipArchive(std::string_view bytes) : library_(std::make_unique<Library>()) {
    if (!library_->handle) return;
    state_ = library_->Open(bytes) ? LookAtParts() : ZipState::Damaged;
}

CZipArchive::~CZipArchive() {
    if (library_->archive != nullptr) library_->discard(library_->archive);
}

ZipState CZipArchive::LookAtParts() const {
    constexpr std::int64_t kMostParts = 10'000;
    const std::int64_t parts = library_->getNumEntries(library_->archive, 0);
    if (parts > kMostParts) return ZipState::TooLarge;
    std::uint64_t bytes = 0;
    for (std::int64_t part = 0; part < parts; ++part) {
        zip_stat_t facts{};
        if (library_->statIndex(library_->archive, static_cast<std::uint64_t>(part), 0, &facts) != 0) {
            return ZipState::Damaged;
        }
        if ((facts.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 && facts.encryption_method != ZIP_EM_NONE) {
            return ZipState::Encrypted;
        }
        if (facts.size > kMostBytes || bytes + facts.size > kMostBytes) return ZipState::TooLarge;
        bytes += facts.size;
    }
    return ZipState::Sound;
}

bool CZipArchive::Has(const std::string& part) const {
    return library_->archive != nullptr && library_->nameLocate(library_->archive, part.c_str(), ZIP_FL_ENC_GUESS) >= 0;
}

std::string CZipArchive::Read(const std::string& part, std::size_t most) {
    std::string bytes;
    const bool isRead = ReadPieces(part, [&](std::string_view piece) {
        bytes += piece;
        return bytes.size() <= most;
    });
    return isRead && bytes.size() <= most ? bytes : std::string();
}

bool CZipArchive::ReadPieces(const std::string& part, const std::function<bool(std::string_view)>& onBytes) {
    struct Closer {
        decltype(&zip_fclose) close;
        void operator()(zip_file_t* file) const { close(file); }
    };
    if (state_ != ZipState::Sound) return false;
    const std::unique_ptr<zip_file_t, Closer> file(library_->open(library_->archive, part.c_str(), 0),
                                                   Closer{library_->close});
    if (!file) {
        ThrowIfShort(library_->getError(library_->archive));
        return false;
    }
    constexpr std::size_t kPiece = 65536;
    std::array<char, kPiece> piece;  // NOLINT(cppcoreguidelines-pro-type-member-init)
    for (;;) {
        const std::int64_t size = library_->read(file.get(), piece.data(), piece.size());
        if (size < 0) {
            ThrowIfShort(library_->fileError(file.get()));
            state_ = ZipState::Damaged;
        }
        if (size <= 0) return size == 0;
        read_ += static_cast<std::uint64_t>(size);
        if (read_ > kMostBytes) state_ = ZipState::TooLarge;
        if (state_ != ZipState::Sound) return false;
        if (!onBytes({piece.data(), static_cast<std::size_t>(size)})) return true;
    }
}

}  // namespace tradebill
