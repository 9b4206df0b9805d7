#include "driver/run_problems.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "images/report_images.h"
#include "platform/file.h"
#include "platform/paths.h"
#include "readers/statement_loader.h"

namespace tradebill {
namespace {

std::string WithReason(std::string text, std::string_view reason) {
    return reason.empty() ? text : text.append(": ").append(reason);
}

std::string ShownPath(const std::string& path) {
    return Utf8Path(NativePath(path));
}

std::string PictureText(const PictureFailure& picture) {
    switch (picture.stage) {
        case PictureStage::Decoding:
            return "can't read the module's own picture for " + std::string(picture.name);
        case PictureStage::Painting:
            return WithReason("can't paint the picture " + std::string(picture.name), picture.reason);
        case PictureStage::Removing:
            return WithReason("can't remove the picture of an older report " + ShownPath(picture.path), picture.reason);
        case PictureStage::Saving:
            break;
    }
    return WithReason("can't write the picture " + ShownPath(picture.path), picture.reason);
}

std::string FolderText(const UnwrittenFile& folder) {
    return WithReason("can't make the folder " + ShownPath(folder.path), folder.reason);
}

}  // namespace

std::string ErrorCodeText(std::uint32_t code) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "0x%08lX", static_cast<unsigned long>(code));
    return text.data();
}

std::string ErrorText(const RunError& error) {
    std::string text = "the run failed with code " + ErrorCodeText(error.code) + ": " + error.text;
    if (error.day.empty()) return text;
    text += " (" + error.day + ", " + Utf8Path(FileNameOf(error.path));
    if (error.place.line > 0) text += ", row " + std::to_string(error.place.line);
    if (!error.place.section.empty()) text.append(", section ").append(error.place.section);
    return text + ")";
}

std::string UnreadFileText(const UnreadFile& file) {
    const std::string path = ShownPath(file.path);
    if (file.state == FileState::NotAFile) return path + " is not a file";
    if (file.state == FileState::Missing) return path + " is missing";
    return WithReason("can't read " + path, file.reason);
}

std::string UnreadStatementText(const UnreadStatement& statement) {
    const std::string path = ShownPath(statement.path);
    if (statement.state == StatementState::NotAFile) return statement.day + ": " + path + " is not a file";
    if (statement.state == StatementState::Missing) {
        return WithReason(statement.day + ": can't write " + path + ", which counts as absent then", statement.reason);
    }
    return WithReason(statement.day + ": can't read " + path, statement.reason);
}

std::vector<std::string> ProblemTexts(const RunProblems& problems) {
    std::vector<std::string> texts;
    if (!problems.names.empty()) texts.push_back(problems.names);
    std::ranges::transform(problems.inputs, std::back_inserter(texts), UnreadFileText);
    std::ranges::transform(problems.statements, std::back_inserter(texts), UnreadStatementText);
    std::ranges::transform(problems.folders, std::back_inserter(texts), FolderText);
    std::ranges::transform(problems.pictures, std::back_inserter(texts), PictureText);
    if (!problems.fonts.empty()) texts.push_back(problems.fonts);
    if (problems.page) {
        texts.push_back(WithReason("can't write the page " + ShownPath(problems.page->path), problems.page->reason));
    }
    if (problems.taken) {
        texts.push_back("nothing is written to " + ShownPath(problems.taken->folder) + ": " + problems.taken->holder +
                        " is writing there");
    }
    if (problems.leftover) {
        const std::string place = ShownPath(problems.leftover->path);
        texts.push_back(WithReason("can't remove " + place + ", which the next run does", problems.leftover->reason));
    }
    return texts;
}

}  // namespace tradebill
