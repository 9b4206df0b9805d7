#include "paint/gdi/gdi_text.h"

#include "base/control_character.h"
#include "base/shortage.h"
#include "paint/raster/text_engine.h"
#include "paint/raster/turned_text.h"
#include "platform/windows/wide_text.h"

namespace tradebill {
namespace {

constexpr const wchar_t* kStandInFace = L"SimSun";  // every Windows has it

/// A negative height is that of the characters without the leading.
CGdiObject MakeFont(const Font& font, std::int32_t height, DWORD charset, const wchar_t* face) {
    CGdiObject made(::CreateFontW(height, 0, font.escapement, 0, font.weight, FALSE, FALSE, FALSE, charset,
                                  OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH | FF_ROMAN,
                                  face));
    if (made.Get() == nullptr) throw CShortage("no font can be made: the system is short of objects to paint with");
    return made;
}

TextMetrics MetricsIn(HDC context) {
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(context, &metrics);
    return {.height = metrics.tmHeight,
            .ascent = metrics.tmAscent,
            .descent = metrics.tmDescent,
            .internalLeading = metrics.tmInternalLeading,
            .averageWidth = metrics.tmAveCharWidth,
            .maxWidth = metrics.tmMaxCharWidth};
}

}  // namespace

CGdiText::~CGdiText() {
    if (former_ != nullptr) ::SelectObject(context_, former_);
}

void CGdiText::Select(const Font& font) {
    if (former_ != nullptr) ::SelectObject(context_, former_);
    former_ = nullptr;
    font_ = font;
    own_ = CGdiObject();
    standIn_ = CGdiObject();
}

void CGdiText::Use(Face face) {
    if (own_.Get() == nullptr) own_ = MakeFont(font_, font_.cellHeight, ANSI_CHARSET, WideOf(font_.face).c_str());
    const HGDIOBJ before = ::SelectObject(context_, own_.Get());
    if (former_ == nullptr) former_ = before;
    if (face == Face::Own) return;
    if (standIn_.Get() == nullptr) {
        const TextMetrics metrics = MetricsIn(context_);
        standIn_ = MakeFont(font_, metrics.internalLeading - metrics.height, GB2312_CHARSET, kStandInFace);
    }
    ::SelectObject(context_, standIn_.Get());
}

std::vector<CGdiText::Run> CGdiText::RunsOf(const std::wstring& text) {
    constexpr WORD kMissing = 0xFFFF;
    Use(Face::Own);
    std::vector<WORD> glyphs(text.size(), kMissing);
    ::GetGlyphIndicesW(context_, text.data(), static_cast<int>(text.size()), glyphs.data(),
                       GGI_MARK_NONEXISTING_GLYPHS);
    std::vector<Run> runs;
    for (std::size_t i = 0; i < text.size(); ++i) {
        // Controls have no picture: one that the face lacks is a blank as wide as a space.
        const bool isBlank = glyphs[i] == kMissing && IsControl(text[i]);
        const Face face = glyphs[i] == kMissing && !isBlank ? Face::StandIn : Face::Own;
        if (runs.empty() || runs.back().face != face) runs.push_back({face, {}});
        runs.back().text += isBlank ? L' ' : text[i];
    }
    return runs;
}

std::int32_t CGdiText::WidthOf(const Run& run) {
    SIZE size{};
    Use(run.face);
    ::GetTextExtentPoint32W(context_, run.text.data(), static_cast<int>(run.text.size()), &size);
    return size.cx;
}

TextExtent CGdiText::Measure(std::string_view text) {
    TextExtent extent{0, Metrics().height};
    for (const Run& run : RunsOf(WideOf(text))) extent.width += WidthOf(run);
    return extent;
}

TextMetrics CGdiText::Metrics() {
    Use(Face::Own);
    return MetricsIn(context_);
}

void CGdiText::Write(Point point, std::string_view text) {
    const std::int32_t ascent = Metrics().ascent;
    const UINT former = ::SetTextAlign(context_, TA_LEFT | TA_BASELINE);  // so that both faces stand on one line
    const CTurnedText places(point, font_.escapement);
    std::int32_t along = 0;
    for (const Run& run : RunsOf(WideOf(text))) {
        const std::int32_t width = WidthOf(run);
        const FarPoint start = places.At(along, ascent);
        ::TextOutW(context_, ClampCoordinate(start.x), ClampCoordinate(start.y), run.text.data(),
                   static_cast<int>(run.text.size()));
        along += width;
    }
    ::SetTextAlign(context_, former);
}

namespace {

/// A context of its own, for as long as a measure takes.
struct MeasuringContext {
    explicit MeasuringContext(const Font& font) { text.Select(font); }

    CMemoryContext context;
    CGdiText text{context.Get()};
};

}  // namespace

TextExtent MeasureText(const Font& font, std::string_view text) {
    return MeasuringContext(font).text.Measure(text);
}

TextMetrics MetricsOf(const Font& font) {
    return MeasuringContext(font).text.Metrics();
}

bool HasFontsFor(std::string_view /*text*/) {
    return true;  // the system doesn't come without
}

}  // namespace tradebill
