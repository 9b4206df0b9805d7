#include <windows.h>

#include "paint/gdi/far_line.h"
#include "paint/gdi/gdi_objects.h"
#include "paint/gdi/gdi_text.h"
#include "paint/raster/text_engine.h"

namespace tradebill {
namespace {

class CGdiTextEngine final : public CTextEngine {
public:
    CGdiTextEngine() { ::SetBkMode(context_.Get(), TRANSPARENT); }

    [[nodiscard]] TextExtent Measure(const Font& font, std::string_view text) override {
        return In(font).Measure(text);
    }
    [[nodiscard]] TextMetrics Metrics(const Font& font) override { return In(font).Metrics(); }

    void Write(CBitmap& bitmap, const Box& seen, const Font& font, const TextLine& line) override {
        const HGDIOBJ native = bitmap.Memory().NativeBitmap();
        if (native == nullptr) return;
        const CGdiSelection selection(context_.Get(), native);
        const CGdiObject region = MakeRegion(seen);
        ::SelectClipRgn(context_.Get(), static_cast<HRGN>(region.Get()));  // which copies it
        ::SetTextColor(context_.Get(), PixelOf(line.pixel));               // the same swap both ways
        In(font).Write(Clamped(line.leftTop), line.text);
        ::GdiFlush();  // its pixels are read and written in between
    }

private:
    CGdiText& In(const Font& font) {
        if (font != font_) text_.Select(font);
        font_ = font;
        return text_;
    }

    CMemoryContext context_;
    CGdiText text_{context_.Get()};
    Font font_;
};

}  // namespace

std::unique_ptr<CTextEngine> MakeTextEngine() {
    return std::make_unique<CGdiTextEngine>();
}

}  // namespace tradebill
