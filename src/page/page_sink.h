// Where a page goes beside its file: whoever takes it gets what the sections write, as they write it.
#pragma once

#include <string_view>

namespace tradebill {

class CPageForm;

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
};

}  // namespace tradebill
