// Where a page goes beside its file: whoever takes it gets what the sections write, as they write it.
#pragma once

#include <cstddef>
#include <string_view>

namespace tradebill {

class CPageForm;

/// The table that rows are of.
struct PageRows {
    std::size_t columns;
    std::string_view lineClass;  ///< style class of a line that is added between them
};

/// Texts are GBK, and markup throughout: what is to be read as it stands comes escaped. A page comes as styles and
/// texts in their order; behind a closing an open line is ended.
class CPageSink {
public:
    CPageSink() = default;
    CPageSink(const CPageSink&) = delete;
    CPageSink& operator=(const CPageSink&) = delete;
    virtual ~CPageSink() = default;

    [[nodiscard]] virtual const CPageForm& Form() const = 0;  ///< what differs between pages is made with it

    virtual void AddStyle(std::string_view block) = 0;  ///< goes into the head
    virtual void AddText(std::string_view text) = 0;    ///< goes to the end of the body
    virtual void ClosePage() = 0;

    // What is known of the texts, for sinks that treat rows apart. All styles have come before the first rows.

    /// Until EndRows() texts are whole rows of one table, behind its heading.
    virtual void BeginRows(const PageRows& /*table*/) {}
    /// The rows up to the next group are of one `day`, which is a text and not escaped.
    virtual void BeginDay(std::string_view /*day*/) {}
    virtual void EndRows() {}
};

}  // namespace tradebill
