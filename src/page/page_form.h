// How a page spells what isn't the same everywhere that it goes: its pictures, and what answers a click.
#pragma once

#include <string>
#include <string_view>

namespace tradebill {

class CReport;

/// This one is the page's own: pictures by paths, scripts in attributes. Texts are GBK, and markup.
class CPageForm {
public:
    CPageForm() = default;
    CPageForm(const CPageForm&) = delete;
    CPageForm& operator=(const CPageForm&) = delete;
    virtual ~CPageForm() = default;

    /// The value of a picture's src attribute.
    [[nodiscard]] virtual std::string PictureAddress(const CReport& report, std::string_view picture) const;
    /// The value of a link's href attribute: `script` does nothing, so that the link looks like one and leads nowhere.
    [[nodiscard]] virtual std::string_view LinkAddress(std::string_view script) const;
    /// The attribute of what folds a section at a click, by the function of that name (page_scripts.h).
    [[nodiscard]] virtual std::string FoldAttribute(const CReport& report, std::string_view function) const;
    /// The attribute of a block in which nothing can be marked.
    [[nodiscard]] virtual std::string_view UnmarkableAttribute() const;
    /// The elements that hold the page's scripts, in lines.
    [[nodiscard]] virtual std::string Scripts(const CReport& report) const;
};

}  // namespace tradebill
