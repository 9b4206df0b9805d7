// The page as one file, for mail or a phone: UTF-8, with the pictures inside. No script runs in it but its own. It gets
// what the sections write as they write it, with what statements say escaped: nothing has to be looked for in a
// finished page.
#pragma once

#include <functional>
#include <iosfwd>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "page/packed_rows.h"
#include "page/page_form.h"
#include "page/page_sink.h"
#include "platform/file.h"

namespace tradebill {

/// Pictures as the addresses that hold them: "data:image/png;name=BillShrink.png;base64,...". They bear their names, by
/// which the page's script tells the two buttons apart. A picture that isn't there is empty.
///
/// REQUIRES: the report's pictures are saved.
class CHeldPictures {
public:
    [[nodiscard]] std::string AddressOf(const CReport& report, std::string_view picture) const;

    /// A picture that was saved and couldn't be read back, which is empty too; the first of them.
    [[nodiscard]] const std::optional<UnreadFile>& Lost() const { return lost_; }

private:
    [[nodiscard]] std::string DataAddress(const CReport& report, std::string_view picture) const;

    mutable std::optional<UnreadFile> lost_;
    mutable std::map<std::string, std::string, std::less<>> addresses_;  // by picture
};

/// A policy keeps all handlers from running that stand in attributes, since no hash covers them: what answers a click
/// is told by attributes that the page's script reads (standalone_script.js).
///
/// REQUIRES: the report's pictures are saved.
class CStandaloneForm final : public CPageForm {
public:
    [[nodiscard]] std::string PictureAddress(const CReport& report, std::string_view picture) const override;
    [[nodiscard]] std::string_view LinkAddress(std::string_view script) const override;
    [[nodiscard]] std::string FoldAttribute(const CReport& report, std::string_view function) const override;
    [[nodiscard]] std::string_view UnmarkableAttribute() const override;
    [[nodiscard]] std::string Scripts(const CReport& report) const override;

    [[nodiscard]] const CHeldPictures& Pictures() const { return pictures_; }

private:
    CHeldPictures pictures_;
};

/// Rows of a table stand in it packed if they are many, by days where the table has them (packed_rows.h).
class CStandalonePage final : public CPageSink {
public:
    /// Writes to `out`, which must outlive it and tells whether all of it could be written.
    explicit CStandalonePage(std::ostream& out) : out_(out), rows_(out) {}

    [[nodiscard]] const CPageForm& Form() const override { return form_; }
    void AddStyle(std::string_view block) override;
    void AddText(std::string_view text) override;
    void ClosePage() override;
    void BeginRows(const PageRows& table) override;
    void BeginDay(std::string_view day) override;
    void EndRows() override;

    /// Writes what ends the page. Nothing may follow.
    void Finish();

    /// A picture that the page lacks, though it was saved, or nothing.
    [[nodiscard]] const std::optional<UnreadFile>& LostPicture() const { return form_.Pictures().Lost(); }

private:
    void StartBody();

    std::ostream& out_;
    CStandaloneForm form_;
    std::string styles_;
    std::string unstarted_;  // the body before the head is complete
    CPackedRows rows_;
    bool isInRows_ = false;
    bool hasStarted_ = false;
    bool endsInLine_ = false;
};

}  // namespace tradebill
