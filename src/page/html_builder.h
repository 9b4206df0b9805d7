// The only writer of the report page. The page on disk is the document: every operation opens the file, changes it and
// closes it again, and ClosePage, which may run at any time, makes it a whole HTML document. While a page is gathered
// the file may lag behind, and is the same in the end (page_file.h). The builder knows HTML and nothing of statements;
// what goes into the page the sections decide (page_sections.h). All texts are GBK. The page has them as they stand;
// its copy, which people send around, has those of headings, cells and notes escaped.
//
// A failed operation leaves the page as it is and says nothing; HasFailed tells it to whoever wants to know.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "page/page_file.h"
#include "page/page_sink.h"
#include "page/page_text.h"

namespace tradebill {

class CPageForm;
class CRowBlock;

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

class CHtmlBuilder {
public:
    /// Creates the page with its head lines. If it can't, the builder has no path and writes nothing from then on.
    /// `path` is cut to 259 bytes. `copy`, which may be null and must outlive the builder, gets the page too.
    explicit CHtmlBuilder(std::string_view path, CPageSink* copy = nullptr);

    /// A page that is made where nobody looks, at a path of any length. `show` brings it, whole on disk, to where it is
    /// looked for.
    explicit CHtmlBuilder(const WholePath& path, CPageSink* copy = nullptr, std::function<void()> show = {});
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
    /// Text in which pages differ: made for each place that the page goes to.
    void AddByForm(const std::function<std::string(const CPageForm& form)>& text);
    /// Rows of a table.
    ///
    /// REQUIRES: `rows` notes markup if the page has a copy.
    void AddRows(const CRowBlock& rows);
    /// For the page's copy, behind what was added before: what CPageSink's functions of these names say.
    void BeginRows(const PageRows& table);
    void BeginDay(std::string_view day);
    void EndRows();
    /// Whether the page goes elsewhere too.
    [[nodiscard]] bool HasCopy() const { return copy_ != nullptr; }

    /// Rewrites the file so that it is a complete page. May run any number of times.
    void ClosePage();

    /// Brings a page that is gathered to disk.
    void Settle() { file_.Settle(); }

    /// Lets others see the page as it is by now: on disk, and at its place.
    void Show();

    /// Whether an operation could not do its work since the builder was made.
    [[nodiscard]] bool HasFailed() const { return file_.HasFailed(); }

    /// Why the first of them could not, in the system's words; UTF-8, empty if the system has none for it.
    [[nodiscard]] std::string WhyFailed() const { return file_.WhyFailed(); }

private:
    friend class CPageGathering;

    /// Adds what `made` makes of a way to write a text down.
    void AddBoth(const std::function<std::string(std::string (*write)(std::string_view text))>& made);

    CPageFile file_;
    CPageSink* copy_;
    std::function<void()> show_;
};

/// While one lives the page is gathered: it goes to disk in large blocks and each byte once, and the file may lag
/// behind until it goes. One inside of another does nothing.
class CPageGathering {
public:
    explicit CPageGathering(CHtmlBuilder& page) : page_(page), isOutermost_(!page.file_.IsGathering()) {
        page_.file_.BeginGathering();
    }
    ~CPageGathering() {
        if (isOutermost_) page_.file_.EndGathering();
    }
    CPageGathering(const CPageGathering&) = delete;
    CPageGathering& operator=(const CPageGathering&) = delete;

private:
    CHtmlBuilder& page_;
    bool isOutermost_;
};

}  // namespace tradebill
