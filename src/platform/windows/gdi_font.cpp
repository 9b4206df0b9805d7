#include "platform/windows/gdi_font.h"

#include "platform/windows/wide_text.h"

namespace tradebill {
namespace {

/// A context with nothing but a font, for as long as a measure takes.
class CFontContext {
public:
    explicit CFontContext(const Font& font) : font_(MakeFont(font)), former_(::SelectObject(Get(), font_.Get())) {}
    CFontContext(const CFontContext&) = delete;
    CFontContext& operator=(const CFontContext&) = delete;
    ~CFontContext() { ::SelectObject(Get(), former_); }

    [[nodiscard]] HDC Get() const { return context_.Get(); }

private:
    CMemoryContext context_;
    CGdiObject font_;
    HGDIOBJ former_;
};

}  // namespace

CGdiObject MakeFont(const Font& font) {
    return CGdiObject(::CreateFontW(font.cellHeight, 0, font.escapement, 0, font.weight, FALSE, FALSE, FALSE,
                                    ANSI_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                                    DEFAULT_PITCH | FF_ROMAN, WideOf(font.face).c_str()));
}

TextExtent ExtentIn(HDC context, const std::wstring& text) {
    SIZE size{};
    ::GetTextExtentPoint32W(context, text.data(), static_cast<int>(text.size()), &size);
    return {size.cx, size.cy};
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

TextExtent MeasureText(const Font& font, std::string_view text) {
    const CFontContext context(font);
    return ExtentIn(context.Get(), WideOf(text));
}

TextMetrics MetricsOf(const Font& font) {
    const CFontContext context(font);
    return MetricsIn(context.Get());
}

bool HasFonts() {
    return true;  // the system doesn't come without
}

}  // namespace tradebill
