// Compares the pictures that report_pixels made on two systems.
// Usage: compare_pictures FOLDER OTHER_FOLDER DIFFERENCES
// Every pixel outside of the texts of either must be the same. For a picture that differs, DIFFERENCES/NAME.png shows
// it: what both have in pale colours, what differs in red, the text areas in grey. Exit 0 if nothing does.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <ios>
#include <iostream>
#include <iterator>
#include <optional>
#include <set>
#include <string>

#include "paint/picture_file.h"

namespace tradebill {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kDifference = 0xFFFF0000;
constexpr std::uint32_t kTextArea = 0xFFD0D0D0;

CPicture PictureAt(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    return DecodePng(bytes).value_or(CPicture(0, 0));
}

/// A picture and where its texts stand.
struct Side {
    CPicture picture;
    CPicture texts;

    Side(const fs::path& folder, const std::string& name)
        : picture(PictureAt(folder / (name + ".png"))), texts(PictureAt(folder / (name + ".text.png"))) {}

    [[nodiscard]] bool IsText(std::int32_t x, std::int32_t y) const { return (texts.Row(y)[x] & 0xFFFFFF) == 0; }
};

bool HasSize(const CPicture& picture, const CPicture& as) {
    return picture.Width() == as.Width() && picture.Height() == as.Height() && picture.Width() > 0;
}

std::uint32_t Paled(std::uint32_t pixel) {
    return 0xFF000000 | ((pixel >> 1 & 0x7F7F7F) + 0x808080);
}

struct Comparison {
    std::int64_t differing = 0;
    std::int64_t inTexts = 0;  ///< pixels that weren't looked at
    CPicture shown;
};

Comparison Compared(const Side& one, const Side& other) {
    Comparison result{.shown = CPicture(one.picture.Width(), one.picture.Height())};
    for (std::int32_t y = 0; y < one.picture.Height(); ++y) {
        for (std::int32_t x = 0; x < one.picture.Width(); ++x) {
            const std::uint32_t pixel = one.picture.Row(y)[x];
            const bool isText = one.IsText(x, y) || other.IsText(x, y);
            const bool differs = !isText && ((pixel ^ other.picture.Row(y)[x]) & 0xFFFFFF) != 0;
            result.inTexts += isText ? 1 : 0;
            result.differing += differs ? 1 : 0;
            result.shown.Row(y)[x] = isText ? kTextArea : differs ? kDifference : Paled(pixel);
        }
    }
    return result;
}

/// Names of all pictures in a folder, without those of texts.
std::set<std::string> NamesIn(const fs::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string stem = entry.path().stem().string();
        if (!stem.ends_with(".text")) names.insert(stem);
    }
    return names;
}

bool IsSame(const std::string& name, const fs::path& folder, const fs::path& otherFolder, const fs::path& differences) {
    const Side one(folder, name);
    const Side other(otherFolder, name);
    if (!HasSize(other.picture, one.picture) || !HasSize(one.texts, one.picture) ||
        !HasSize(other.texts, one.picture)) {
        std::cout << name << ": missing, or of another size\n";
        return false;
    }
    const Comparison result = Compared(one, other);
    if (result.inTexts * 10 > 9 * std::int64_t{one.picture.Width()} * one.picture.Height()) {
        std::cout << name << ": hardly anything but texts, nothing is compared\n";
        return false;
    }
    if (result.differing == 0) return true;
    std::cout << name << ": " << result.differing << " pixels differ\n";
    std::ofstream(differences / (name + ".png"), std::ios::binary) << EncodePng(result.shown);
    return false;
}

bool AreSame(const fs::path& folder, const fs::path& otherFolder, const fs::path& differences) {
    fs::create_directories(differences);
    const std::set<std::string> names = NamesIn(folder);
    if (names.size() != 12 || names != NamesIn(otherFolder)) {
        std::cout << "not the same twelve pictures\n";
        return false;
    }
    bool isSame = true;
    for (const std::string& name : names) isSame = IsSame(name, folder, otherFolder, differences) && isSame;
    return isSame;
}

}  // namespace
}  // namespace tradebill

int main(int count, char** arguments) {
    if (count != 4) {
        std::cerr << "usage: compare_pictures FOLDER OTHER_FOLDER DIFFERENCES\n";
        return 2;
    }
    return tradebill::AreSame(arguments[1], arguments[2], arguments[3]) ? 0 : 1;
}
