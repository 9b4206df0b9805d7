// The only writer of the report page. The page on disk is the document: every operation opens the file, changes it and
// closes it again, and ClosePage, which may run at any time, makes it a whole HTML document. The builder knows HTML and
// nothing of statements; what goes into the page the sections decide (page_sections.h). All texts are GBK.
//
// A failed operation leaves the page as it is and says nothing; HasFailed tells it to whoever wants to know.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "page/page_scan.h"
#include "page/page_text.h"

namespace tradebill {

/// What a style rule applies to; the numbers from 1 to 6 are heading levels.
enum class StyleTag { None = 0, H1 = 1, H2, H3, H4, H5, H6, Div, Span, P };

struct Style {
    StyleTag tag = StyleTag::None;
    std::string_view className = {};
    std::string_view font = {};
    int size = -1;  ///< pixels; none if not above 0
    bool bold = false;
    std::string_view color = {};
    std::string_view background = {};
    int marginBottom = -1;  ///< pixels; none if -1
};

class CFile;

class CHtmlBuilder {
public:
    /// Creates the page with its head lines. If it can't, the builder has no path and does nothing from then on. `path`
    /// is cut to 259 bytes.
    explicit CHtmlBuilder(std::string_view path);
    virtual ~CHtmlBuilder() = default;
    CHtmlBuilder(const CHtmlBuilder&) = delete;
    CHtmlBuilder& operator=(const CHtmlBuilder&) = delete;

    /// Inserts one style block before the page's </head> line.
    void AddStyle(const Style& style);
    /// Levels 1 to 6; any other adds nothing. No line end follows.
    void AddHeading(int level, std::string_view className, std::string_view text);
    void AddAnchor(std::string_view name);
    /// No line end follows.
    void AddRule(std::string_view style);
    void OpenTable(std::string_view id, int width);
    void CloseTable();
    void AddSizedRow(std::span<const Cell> cells, std::span<const std::string_view> widths, std::string_view rowClass);
    void AddRow(std::span<const Cell> cells, std::string_view rowClass);
    /// A note paragraph; tabs and blanks are widened (ExpandTabs).
    void AddNote(std::string_view text);
    /// Text as it stands, at the end of the file.
    void AddText(std::string_view text);

    /// Rewrites the file so that it is a complete page. May run any number of times.
    void ClosePage();

    /// Whether an operation could not do its work since the builder was made.
    [[nodiscard]] bool HasFailed() const { return failed_; }

private:
    void CloseWhole(CFile& file);
    void CloseAddition(CFile& file);

    std::string path_;
    bool failed_ = false;

    // What ClosePage needs to do work only for what came since the last time.
    std::uint64_t size_ = 0;        // of the file as this builder left it
    std::uint64_t closedSize_ = 0;  // of the file after the last ClosePage; 0: the next one makes the full pass
    CPageScan added_;               // what was appended since
};

}  // namespace tradebill
