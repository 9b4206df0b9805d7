#include "platform/file.h"

#include <windows.h>

#include <algorithm>
#include <limits>

#include "platform/system_error.h"
#include "platform/windows/unique_handle.h"

namespace tradebill {
namespace {

struct OpenWay {
    DWORD access;
    DWORD disposition;
};

OpenWay WayOf(FileMode mode) {
    switch (mode) {
        case FileMode::Read:
            return {GENERIC_READ, OPEN_EXISTING};
        case FileMode::Create:
            return {GENERIC_WRITE, CREATE_ALWAYS};
        case FileMode::CreateNew:
            return {GENERIC_WRITE, CREATE_NEW};
        case FileMode::Append:
            return {FILE_APPEND_DATA, OPEN_EXISTING};
        case FileMode::Update:
            break;
    }
    return {GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING};
}

HANDLE HandleOf(std::intptr_t file) {
    return reinterpret_cast<HANDLE>(file);
}

/// One call of the system moves at most this many bytes.
DWORD StepOf(std::size_t size) {
    return static_cast<DWORD>(std::min<std::size_t>(size, std::numeric_limits<DWORD>::max() / 2));
}

OVERLAPPED PlaceAt(std::uint64_t offset) {
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(offset & 0xFFFFFFFF);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    return place;
}

/// Writes all of `bytes`; each step goes where `place`, given the bytes that are done, says.
template <class Place>
bool WriteSteps(std::intptr_t file, std::string_view bytes, Place place) {
    for (std::uint64_t done = 0; !bytes.empty();) {
        DWORD written = 0;
        const BOOL isDone = ::WriteFile(HandleOf(file), bytes.data(), StepOf(bytes.size()), &written, place(done));
        if (isDone == FALSE || written == 0) return false;
        bytes.remove_prefix(written);
        done += written;
    }
    return true;
}

}  // namespace

CFile::CFile(const std::string& path, FileMode mode) {
    const OpenWay way = WayOf(mode);
    ForgetSystemError();
    handle_ =
        reinterpret_cast<std::intptr_t>(::CreateFileA(path.c_str(), way.access, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                                      nullptr, way.disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

CFile::~CFile() {
    if (IsOpen()) ::CloseHandle(HandleOf(handle_));
}

bool CFile::IsOpen() const {
    return HandleOf(handle_) != INVALID_HANDLE_VALUE;
}

bool CFile::IsAt(const std::string& path) const {
    // Nobody can move or remove what is open without leave to do so; a name that leads elsewhere may still be new.
    const CFile there(path, FileMode::Read);
    BY_HANDLE_FILE_INFORMATION own{};
    BY_HANDLE_FILE_INFORMATION other{};
    return there.IsOpen() && ::GetFileInformationByHandle(HandleOf(handle_), &own) != FALSE &&
           ::GetFileInformationByHandle(HandleOf(there.handle_), &other) != FALSE &&
           own.dwVolumeSerialNumber == other.dwVolumeSerialNumber && own.nFileIndexHigh == other.nFileIndexHigh &&
           own.nFileIndexLow == other.nFileIndexLow;
}

std::optional<std::uint64_t> CFile::Size() const {
    ForgetSystemError();
    LARGE_INTEGER size{};
    if (::GetFileSizeEx(HandleOf(handle_), &size) == FALSE) return std::nullopt;
    return static_cast<std::uint64_t>(size.QuadPart);
}

bool CFile::Write(std::string_view bytes) {
    ForgetSystemError();
    return WriteSteps(handle_, bytes, [](std::uint64_t) { return nullptr; });
}

bool CFile::WriteAt(std::uint64_t offset, std::string_view bytes) {
    ForgetSystemError();
    OVERLAPPED place{};
    return WriteSteps(handle_, bytes, [&](std::uint64_t done) {
        place = PlaceAt(offset + done);
        return &place;
    });
}

std::optional<std::size_t> CFile::ReadAt(std::uint64_t offset, char* buffer, std::size_t size) const {
    ForgetSystemError();
    std::size_t done = 0;
    while (done < size) {
        OVERLAPPED place = PlaceAt(offset + done);
        DWORD got = 0;
        const BOOL isRead = ::ReadFile(HandleOf(handle_), buffer + done, StepOf(size - done), &got, &place);
        if (isRead == FALSE && LastSystemError() != ERROR_HANDLE_EOF) return std::nullopt;
        if (isRead == FALSE || got == 0) break;
        done += got;
    }
    ForgetSystemError();  // a file's end is no failure
    return done;
}

bool CFile::MakeDurable() {
    ForgetSystemError();
    return ::FlushFileBuffers(HandleOf(handle_)) != FALSE;
}

bool CFile::Close() {
    if (!IsOpen()) return false;
    ForgetSystemError();
    const HANDLE file = HandleOf(handle_);
    handle_ = reinterpret_cast<std::intptr_t>(INVALID_HANDLE_VALUE);
    return ::CloseHandle(file) != FALSE;
}

std::optional<std::uint64_t> CFile::SizeOnDisk() const {
    ForgetSystemError();
    if (::GetFileType(HandleOf(handle_)) != FILE_TYPE_DISK) return std::nullopt;
    return Size();
}

std::optional<FileStamp> StampOf(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA status{};
    if (::GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &status) == FALSE) return std::nullopt;
    if ((status.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return std::nullopt;
    const auto joined = [](DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; };
    const FILETIME& changed = status.ftLastWriteTime;
    return FileStamp{static_cast<std::int64_t>(joined(changed.dwHighDateTime, changed.dwLowDateTime)),
                     joined(status.nFileSizeHigh, status.nFileSizeLow)};
}

}  // namespace tradebill
