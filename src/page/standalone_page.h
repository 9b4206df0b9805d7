// The page as one file, for mail or a phone: UTF-8, with the pictures inside. It gets what the sections write as they
// write it, with what statements say escaped: nothing has to be looked for in a finished page.
#pragma once

#include <functional>
#include <iosfwd>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "page/page_sink.h"
#include "platform/file.h"

namespace tradebill {

/// Points at pictures by holding them: "data:image/png;name=BillShrink.png;base64,...". They bear their names, by which
/// the page's scripts tell the two buttons apart. A picture that isn't there is empty.
///
/// REQUIRES: the report's pictures are saved.
class CHeldPictures final : public CPictureLinks {
public:
    [[nodiscard]] std::string InPage(const CReport& report, std::string_view picture) const override;
    [[nodiscard]] std::string InScript(const CReport& report, std::string_view picture) const override;

    /// A picture that was saved and couldn't be read back, which is empty too; the first of them.
    [[nodiscard]] const std::optional<UnreadFile>& Lost() const { return lost_; }

private:
    [[nodiscard]] std::string DataAddress(const CReport& report, std::string_view picture) const;

    mutable std::optional<UnreadFile> lost_;
    mutable std::map<std::string, std::string, std::less<>> addresses_;  // by picture
};

class CStandalonePage final : public CPageSink {
public:
    /// Writes to `out`, which must outlive it and tells whether all of it could be written.
    explicit CStandalonePage(std::ostream& out) : out_(out) {}

    [[nodiscard]] const CPictureLinks& Links() const override { return links_; }
    void AddStyle(std::string_view block) override;
    void AddText(std::string_view text) override;
    void ClosePage() override;

    /// Writes what ends the page. Nothing may follow.
    void Finish();

    /// A picture that the page lacks, though it was saved, or nothing.
    [[nodiscard]] const std::optional<UnreadFile>& LostPicture() const { return links_.Lost(); }

private:
    void StartBody();

    std::ostream& out_;
    CHeldPictures links_;
    std::string styles_;
    std::string unstarted_;  // the body before the head is complete
    bool hasStarted_ = false;
    bool endsInLine_ = false;
};

}  // namespace tradebill
