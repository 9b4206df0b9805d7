#include "paint/freetype/font_faces.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <cstddef>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "paint/freetype/font_stream.h"

namespace tradebill {
namespace {

constexpr int kMostFallbacks = 4;  // files tried per family; each covers a script that the ones before lack
constexpr const char* kFurtherFonts = "/usr/share/wine/fonts";  // where Debian's Tahoma lies, unknown to fontconfig

/// Families that Debian ships, of the same measures where such exist.
struct StandIn {
    std::string_view family;
    const char* wanted;
};
// clang-format off
constexpr StandIn kStandIns[] = {
    {"Arial",  "Arial"},
    {"Arial",  "Liberation Sans"},
    {"Tahoma", "Tahoma"},
    {"宋体",   "SimSun"},
    {"宋体",   "AR PL UMing CN"},
    {"宋体",   "WenQuanYi Zen Hei"},
};
// clang-format on

struct DestroyPattern {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, DestroyPattern>;

/// REQUIRES, of this and of all that keeps something here: the caller holds FontLock().
FT_Library Library() {
    static FT_Library library = [] {
        FT_Library made = nullptr;
        return FT_Init_FreeType(&made) == 0 ? made : nullptr;
    }();
    return library;
}

bool StartFontconfig() {
    static const bool started = [] {
        if (FcInit() == FcFalse) return false;
        FcConfigAppFontAddDir(nullptr, reinterpret_cast<const FcChar8*>(kFurtherFonts));
        return true;
    }();
    return started;
}

std::string_view TextOf(FcPattern* font, const char* property) {
    FcChar8* text = nullptr;
    if (FcPatternGetString(font, property, 0, &text) != FcResultMatch) return {};
    return reinterpret_cast<const char*>(text);
}

/// One face for each file, whoever asks for it.
FT_Face OpenFace(FcPattern* font) {
    static std::map<std::pair<std::string, int>, FT_Face> faces;
    int index = 0;
    FcPatternGetInteger(font, FC_INDEX, 0, &index);
    const std::string path(TextOf(font, FC_FILE));
    const auto [entry, isNew] = faces.try_emplace({path, index & 0xFFFF});
    if (isNew) entry->second = OpenFontFile(path.c_str(), index & 0xFFFF);
    return entry->second;
}

Pattern Wanted(const char* family, bool bold) {
    Pattern wanted(FcPatternCreate());
    FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family));
    FcPatternAddInteger(wanted.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddString(wanted.get(), FC_LANG, reinterpret_cast<const FcChar8*>("zh-cn"));
    FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    return wanted;
}

/// The file itself knows best whether it is bold: fontconfig calls bold what it expects others to thicken.
std::optional<FaceChoice> ChoiceOf(FcPattern* font, bool bold) {
    FT_Face const face = OpenFace(font);
    if (face == nullptr) return std::nullopt;
    return FaceChoice{face, bold && (face->style_flags & FT_STYLE_FLAG_BOLD) == 0};
}

bool HasFamily(FcPattern* font, std::string_view family) {
    FcChar8* name = nullptr;
    for (int i = 0; FcPatternGetString(font, FC_FAMILY, i, &name) == FcResultMatch; ++i) {
        if (reinterpret_cast<const char*>(name) == family) return true;
    }
    return false;
}

/// Quicker than a match, which weighs every font of the system.
bool IsInstalled(std::string_view family) {
    for (const FcSetName name : {FcSetSystem, FcSetApplication}) {
        const FcFontSet* const set = FcConfigGetFonts(nullptr, name);
        if (set == nullptr) continue;
        const std::span fonts(set->fonts, static_cast<std::size_t>(set->nfont));
        if (std::ranges::any_of(fonts, [&](FcPattern* font) { return HasFamily(font, family); })) return true;
    }
    return false;
}

/// The family itself, if it is installed.
std::optional<FaceChoice> FindFamily(const char* family, bool bold) {
    if (!IsInstalled(family)) return std::nullopt;
    FcResult result = FcResultMatch;
    const Pattern found(FcFontMatch(nullptr, Wanted(family, bold).get(), &result));
    if (found == nullptr || !HasFamily(found.get(), family)) return std::nullopt;
    return ChoiceOf(found.get(), bold);
}

/// The face of the first stand-in that is installed.
std::optional<FaceChoice> FindOwnFace(std::string_view family, bool bold) {
    for (const StandIn& standIn : kStandIns) {
        if (standIn.family != family) continue;
        if (const auto choice = FindFamily(standIn.wanted, bold)) return choice;
    }
    return std::nullopt;
}

UniqueFontSet SortedFonts(const std::string& family, bool bold) {
    FcResult result = FcResultMatch;
    return UniqueFontSet(FcFontSort(nullptr, Wanted(family.c_str(), bold).get(), FcTrue, nullptr, &result));
}

}  // namespace

void DestroyFontSet::operator()(FcFontSet* set) const {
    FcFontSetDestroy(set);
}

CFontFamily::CFontFamily(std::string name, bool bold) : name_(std::move(name)), isBold_(bold) {
    hasFonts_ = Library() != nullptr && StartFontconfig();
    if (!hasFonts_) return;
    if (const auto own = FindOwnFace(name_, isBold_)) faces_.push_back(*own);
}

const FaceChoice* CFontFamily::FaceAt(std::size_t index) {
    while (index >= faces_.size()) {
        if (!AddFallback()) return nullptr;
    }
    return &faces_[index];
}

bool CFontFamily::AddFallback() {
    if (!hasFonts_) return false;
    if (!isSorted_) sorted_ = SortedFonts(name_, isBold_);
    isSorted_ = true;
    while (sorted_ != nullptr && tried_ < std::min(sorted_->nfont, kMostFallbacks)) {
        const auto choice = ChoiceOf(sorted_->fonts[tried_++], isBold_);
        if (!choice || std::ranges::find(faces_, choice->face, &FaceChoice::face) != faces_.end()) continue;
        faces_.push_back(*choice);
        return true;
    }
    return false;
}

FT_Face OpenFontFile(const char* path, int index) {
    const std::scoped_lock guard(FontLock());
    const auto stream = Library() != nullptr ? OpenFontStream(path) : nullptr;
    if (stream == nullptr) return nullptr;
    FT_Open_Args how{};
    how.flags = FT_OPEN_STREAM;
    how.stream = stream;  // freed with the face, or at once if none comes of it
    FT_Face face = nullptr;
    return FT_Open_Face(Library(), &how, index, &face) == 0 ? face : nullptr;
}

CFontFamily& FamilyFor(const std::string& name, bool bold) {
    static std::map<std::pair<std::string, bool>, CFontFamily> families;
    const auto known = families.find({name, bold});
    if (known != families.end()) return known->second;
    return families.try_emplace({name, bold}, name, bold).first->second;
}

std::recursive_mutex& FontLock() {
    static std::recursive_mutex lock;
    return lock;
}

}  // namespace tradebill
