// Where a page goes beside its file: whoever takes it gets what the sections write, as they write it.
#pragma once

#include <string>
#include <string_view>

namespace tradebill {

class CReport;

/// How a page points at the report's pictures. This one is the page's own, by paths.
class CPictureLinks {
public:
    CPictureLinks() = default;
    CPictureLinks(const CPictureLinks&) = delete;
    CPictureLinks& operator=(const CPictureLinks&) = delete;
    virtual ~CPictureLinks() = default;

    /// As a src attribute spells it.
    [[nodiscard]] virtual std::string InPage(const CReport& report, std::string_view picture) const;
    /// As a script spells it.
    [[nodiscard]] virtual std::string InScript(const CReport& report, std::string_view picture) const;
};

/// Texts are GBK, and markup throughout: what is to be read as it stands comes escaped. A page comes as styles and
/// texts in their order; behind a closing an open line is ended.
class CPageSink {
public:
    CPageSink() = default;
    CPageSink(const CPageSink&) = delete;
    CPageSink& operator=(const CPageSink&) = delete;
    virtual ~CPageSink() = default;

    [[nodiscard]] virtual const CPictureLinks& Links() const = 0;  ///< texts with pictures are made with these

    virtual void AddStyle(std::string_view block) = 0;  ///< goes into the head
    virtual void AddText(std::string_view text) = 0;    ///< goes to the end of the body
    virtual void ClosePage() = 0;
};

}  // namespace tradebill
