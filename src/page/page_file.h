// The page on disk. Called alone, each operation opens the file, changes it and closes it again, so that whoever looks
// between two of them finds what the last one left. A page that is gathered comes to the same bytes by a shorter way:
// what is added is kept, goes out in large blocks, and goes at once where it will stand in the closed page, so that no
// closing has to move it. Settle brings the file to what single operations would have left.
//
// page_file_closing.cpp has the closings, page_file_gathering.cpp the shorter way.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "page/page_scan.h"
#include "platform/file.h"
#include "platform/system_error.h"

namespace tradebill {

/// Whether a text is known to hold whole lines that a closing would keep to the byte.
enum class TextKind { Any, PlainLines };

/// A path that isn't cut.
struct WholePath {
    std::string path;
};

class CPageFile {
public:
    /// Makes the file with its head lines, or empties it. If that fails there is no path, and nothing is done from then
    /// on. `path` is cut to 259 bytes.
    explicit CPageFile(std::string_view path);
    explicit CPageFile(const WholePath& path);
    CPageFile(const CPageFile&) = delete;
    CPageFile& operator=(const CPageFile&) = delete;

    /// Puts `text` at the end.
    void Append(std::string_view text, TextKind kind = TextKind::Any);

    /// Puts `block` before the line with </head>, or before the last line if there is none. Every line behind it is
    /// ended once.
    void InsertInHead(std::string_view block);

    /// Makes the file a complete page: the tags that stand around a page are taken out wherever an earlier run left
    /// them, and written anew. The file is never cut.
    void Close();

    // From BeginGathering to EndGathering, which settles, the file may lag behind.
    void BeginGathering() { isGathering_ = true; }
    void EndGathering() noexcept;
    [[nodiscard]] bool IsGathering() const { return isGathering_; }

    /// Brings everything to disk, as single operations would have left it.
    void Settle();

    /// Whether an operation could not do its work.
    [[nodiscard]] bool HasFailed() const { return failed_; }

    /// Why the first of them could not, in the system's words; UTF-8, empty if the system has none for it.
    [[nodiscard]] std::string WhyFailed() const { return SystemErrorText(failure_); }

private:
    // What is gathered is not on disk, or not where single operations would have put it.
    enum class Gathered {
        Nothing,  ///< the file is as told
        All,      ///< kept_ is all of the page; the file has its first lines
        Behind,   ///< kept_ stands behind what is streamed
    };

    /// The operation that the system refused last could not be done.
    void Fail() noexcept;

    [[nodiscard]] bool AppendAtOnce(std::string_view text);
    void CloseWhole(CFile& file);
    void CloseAddition(CFile& file);

    // These return false where the file itself has to be changed.
    [[nodiscard]] bool Gather(std::string_view text);
    [[nodiscard]] bool InsertInGatheredHead(std::string_view block);
    [[nodiscard]] bool CloseGathered();

    [[nodiscard]] bool HasBegunToGather();
    void StreamKept();
    void Stream(std::string_view text);
    [[nodiscard]] bool OpenFresh();
    [[nodiscard]] bool WriteTold();
    void Spoil();

    std::string path_;
    bool failed_ = false;
    std::uint32_t failure_ = 0;  // the system's number for the first failure; 0: it has none

    // What a closing needs to do work only for what came since the last one.
    std::uint64_t size_ = 0;        // of the page as this object left it, gathered or not
    std::uint64_t closedSize_ = 0;  // of the page after the last closing; 0: the next one makes the full pass
    CPageScan added_;               // what was appended since

    bool isGathering_ = false;
    Gathered gathered_ = Gathered::Nothing;
    bool isFresh_ = false;  // the file holds the head lines and nothing else
    std::string kept_;
    std::unique_ptr<CFile> file_;  // open while there is a stream
    std::uint64_t streamed_ = 0;   // bytes that are on disk where they stand in the closed page
};

}  // namespace tradebill
