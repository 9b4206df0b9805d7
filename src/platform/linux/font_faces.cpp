#include "platform/linux/font_faces.h"

#include <fontconfig/fontconfig.h>
#include FT_TRUETYPE_TABLES_H

#include <map>
#include <memory>
#include <mutex>
#include <utility>

namespace tradebill {
namespace {

constexpr int kMostFallbacks = 4;  // files tried per family; each covers a script that the ones before lack

struct DestroyPattern {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
struct DestroyFontSet {
    void operator()(FcFontSet* set) const { FcFontSetDestroy(set); }
};

FT_Library Library() {
    static FT_Library library = [] {
        FT_Library made = nullptr;
        return FT_Init_FreeType(&made) == 0 ? made : nullptr;
    }();
    return library;
}

FT_Face OpenFace(FcPattern* font) {
    FcChar8* file = nullptr;
    int index = 0;
    if (FcPatternGetString(font, FC_FILE, 0, &file) != FcResultMatch) return nullptr;
    FcPatternGetInteger(font, FC_INDEX, 0, &index);
    FT_Face face = nullptr;
    const auto* const path = reinterpret_cast<const char*>(file);
    return FT_New_Face(Library(), path, index & 0xFFFF, &face) == 0 ? face : nullptr;
}

std::vector<FT_Face> FindFaces(const std::string& family, bool bold) {
    std::vector<FT_Face> faces;
    if (Library() == nullptr || FcInit() == FcFalse) return faces;
    const std::unique_ptr<FcPattern, DestroyPattern> wanted(FcPatternCreate());
    FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
    FcPatternAddInteger(wanted.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddString(wanted.get(), FC_LANG, reinterpret_cast<const FcChar8*>("zh-cn"));
    FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultMatch;
    const std::unique_ptr<FcFontSet, DestroyFontSet> sorted(
        FcFontSort(nullptr, wanted.get(), FcTrue, nullptr, &result));
    if (sorted == nullptr) return faces;
    for (int i = 0; i < sorted->nfont && i < kMostFallbacks; ++i) {
        if (FT_Face face = OpenFace(sorted->fonts[i]); face != nullptr) faces.push_back(face);
    }
    return faces;
}

}  // namespace

const std::vector<FT_Face>& FacesFor(const std::string& family, bool bold) {
    static std::mutex lock;
    static std::map<std::pair<std::string, bool>, std::vector<FT_Face>> cache;
    const std::scoped_lock guard(lock);
    const auto [entry, isNew] = cache.try_emplace({family, bold});
    if (isNew) entry->second = FindFaces(family, bold);
    return entry->second;
}

double EmSizeFor(FT_Face face, int cellHeight) {
    int ascent = face->ascender;
    int descent = -face->descender;
    if (const auto* const os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2)); os2 != nullptr) {
        ascent = os2->usWinAscent;
        descent = os2->usWinDescent;
    }
    if (ascent + descent <= 0) return cellHeight;
    return static_cast<double>(cellHeight) * face->units_per_EM / (ascent + descent);
}

}  // namespace tradebill
