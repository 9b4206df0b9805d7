#include "paint/freetype/font_faces.h"

#include <fontconfig/fontconfig.h>

#include FT_MODULE_H

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
#include <type_traits>
#include <utility>

#include "base/shortage.h"
#include "paint/freetype/font_memory.h"
#include "paint/freetype/font_stream.h"
#include "platform/spare_means.h"

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

constexpr const char* kNoFontsNow = "fonts can't be read: too few files may be open, or too little memory is left";

struct DestroyLibrary {
    void operator()(FT_Library library) const { FT_Done_Library(library); }
};
using UniqueLibrary = std::unique_ptr<std::remove_pointer_t<FT_Library>, DestroyLibrary>;

UniqueLibrary MakeLibrary() {
    FT_Library made = nullptr;
    FT_New_Library(FontMemory(), &made);  // fails for want of memory alone, which is noted
    UniqueLibrary library(made);
    ThrowIfFontShortage();
    FT_Add_Default_Modules(made);
    FT_Set_Default_Properties(made);
    ThrowIfFontShortage();
    return library;
}

/// REQUIRES, of this and of all that keeps something here: the caller holds FontLock().
FT_Library Library() {
    static const FT_Library library = MakeLibrary().release();  // for the life of the process
    return library;
}

/// fontconfig takes fonts that it can't look at for fonts that aren't there, and keeps to that: it is asked when it can
/// look at all of them. Returns true.
bool StartFontconfig() {
    if (!HasSpareMeans() || FcInit() == FcFalse) throw CShortage(kNoFontsNow);
    FcConfigAppFontAddDir(nullptr, reinterpret_cast<const FcChar8*>(kFurtherFonts));
    if (HasSpareMeans()) return true;
    FcFini();
    throw CShortage(kNoFontsNow);
}

void NeedFontconfig() {
    static const bool isStarted = StartFontconfig();
    static_cast<void>(isStarted);
}

struct CloseFace {
    void operator()(FT_Face face) const { FT_Done_Face(face); }
};
using UniqueFace = std::unique_ptr<std::remove_pointer_t<FT_Face>, CloseFace>;
using FaceFiles = std::map<std::pair<std::string, int>, UniqueFace>;
using Families = std::map<std::pair<std::string, bool>, CFontFamily>;

FaceFiles& OpenFaces() {
    static FaceFiles faces;
    return faces;
}

Families& KnownFamilies() {
    static Families families;
    return families;
}

std::string_view TextOf(FcPattern* font, const char* property) {
    FcChar8* text = nullptr;
    if (FcPatternGetString(font, property, 0, &text) != FcResultMatch) return {};
    return reinterpret_cast<const char*>(text);
}

/// One face for each file, whoever asks for it.
FT_Face OpenFace(FcPattern* font) {
    int index = 0;
    FcPatternGetInteger(font, FC_INDEX, 0, &index);
    const std::string path(TextOf(font, FC_FILE));
    const FaceFiles::key_type file(path, index & 0xFFFF);
    FaceFiles& faces = OpenFaces();
    if (const auto known = faces.find(file); known != faces.end()) return known->second.get();
    UniqueFace face(OpenFontFile(path.c_str(), file.second));
    if (face == nullptr) return nullptr;
    return faces.try_emplace(file, std::move(face)).first->second.get();
}

Pattern Wanted(const char* family, bool bold) {
    Pattern wanted(FcPatternCreate());
    if (wanted == nullptr) throw CShortage(kNoFontsNow);
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
    if (face == nullptr || !FT_IS_SCALABLE(face)) return std::nullopt;
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
    if (found == nullptr) throw CShortage(kNoFontsNow);  // one that is installed always matches itself
    if (!HasFamily(found.get(), family)) return std::nullopt;
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
    UniqueFontSet fonts(FcFontSort(nullptr, Wanted(family.c_str(), bold).get(), FcTrue, nullptr, &result));
    if (fonts == nullptr) throw CShortage(kNoFontsNow);  // without fonts it is an empty set
    return fonts;
}

}  // namespace

void DestroyFontSet::operator()(FcFontSet* set) const {
    FcFontSetDestroy(set);
}

CFontFamily::CFontFamily(std::string name, bool bold) : name_(std::move(name)), isBold_(bold) {
    NeedFontconfig();
    if (const auto own = FindOwnFace(name_, isBold_)) faces_.push_back(*own);
}

const FaceChoice* CFontFamily::FaceAt(std::size_t index) {
    while (index >= faces_.size()) {
        if (!AddFallback()) return nullptr;
    }
    return &faces_[index];
}

bool CFontFamily::AddFallback() {
    if (!isSorted_) sorted_ = SortedFonts(name_, isBold_);
    isSorted_ = true;
    while (tried_ < std::min(sorted_->nfont, kMostFallbacks)) {
        const auto choice = ChoiceOf(sorted_->fonts[tried_], isBold_);
        ++tried_;
        if (!choice || std::ranges::find(faces_, choice->face, &FaceChoice::face) != faces_.end()) continue;
        faces_.push_back(*choice);
        return true;
    }
    return false;
}

FT_Face OpenFontFile(const char* path, int index) {
    const std::scoped_lock guard(FontLock());
    FT_Library const library = Library();
    FT_Open_Args how{};
    how.flags = FT_OPEN_STREAM;
    how.stream = OpenFontStream(path);  // freed with the face, or at once if none comes of it
    if (how.stream == nullptr) return nullptr;
    FT_Face opened = nullptr;
    UniqueFace face(FT_Open_Face(library, &how, index, &opened) == 0 ? opened : nullptr);
    ThrowIfFontShortage();
    return face.release();
}

CFontFamily& FamilyFor(const std::string& name, bool bold) {
    Families& families = KnownFamilies();
    const auto known = families.find({name, bold});
    if (known != families.end()) return known->second;
    return families.try_emplace({name, bold}, name, bold).first->second;
}

void ForgetFaces() {
    KnownFamilies().clear();
    OpenFaces().clear();
    static_cast<void>(TakeFontShortage());  // what it was of is gone
}

void ThrowIfFontShortage() {
    if (TakeFontShortage()) throw CShortage(kNoFontsNow);
}

std::recursive_mutex& FontLock() {
    static std::recursive_mutex lock;
    return lock;
}

}  // namespace tradebill
