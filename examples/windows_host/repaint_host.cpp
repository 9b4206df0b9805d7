// A terminal that shows the charts of its last report in a window of any size: it repaints them onto surfaces of GDI+
// and saves those as PNG files.
//
// Usage: repaint_host REQUEST.INI FOLDER
//
// The statements lie below the folder of this program, where the module looks for them by itself.
#include <tradebill/report_request.h>
#include <windows.h>
// After it come what GDI+ needs, and GDI+.
#include <objidl.h>

#include <gdiplus.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

#include "request_file.h"
#include "resource_count.h"

namespace {

using StretchFunction = void (*)(ChartTarget* target, const ChartRect* rect, std::int32_t width, std::int32_t height);

struct Chart {
    const char* name;
    StretchFunction stretch;
};

constexpr Chart kCharts[] = {
    {"equity", StretchZjGraph},
    {"account yield", StretchRiskAndProfit},
    {"trading yield", StretchRisk},
    {"realised", StretchOffsetGraph},
};
constexpr Gdiplus::ARGB kUntouched = 0xFF00FF00;  // no chart has this colour

/// GDI+ is the host's own affair: it is started before its first object and ended after its last one.
class CGdiplusWork {
public:
    CGdiplusWork() { Gdiplus::GdiplusStartup(&token_, &input_, nullptr); }
    CGdiplusWork(const CGdiplusWork&) = delete;
    CGdiplusWork& operator=(const CGdiplusWork&) = delete;
    ~CGdiplusWork() { Gdiplus::GdiplusShutdown(token_); }

private:
    Gdiplus::GdiplusStartupInput input_;
    ULONG_PTR token_ = 0;
};

/// What a host shows: a picture, and the object that paints on it.
class CSurface {
public:
    CSurface(int width, int height) : bitmap_(width, height, PixelFormat32bppARGB), graphics_(&bitmap_) {
        graphics_.Clear(Gdiplus::Color(kUntouched));
    }

    /// Repaints a chart and returns the status that is left in the object; reading it resets it.
    int Repaint(StretchFunction stretch, const ChartRect& rect, int width, int height) {
        stretch(&graphics_, &rect, width, height);
        return graphics_.GetLastStatus();
    }

    [[nodiscard]] Gdiplus::Graphics& Graphics() { return graphics_; }

    /// All pixels, row by row.
    [[nodiscard]] std::vector<Gdiplus::ARGB> Pixels() {
        std::vector<Gdiplus::ARGB> pixels;
        for (INT y = 0; y < static_cast<INT>(bitmap_.GetHeight()); ++y) {
            for (INT x = 0; x < static_cast<INT>(bitmap_.GetWidth()); ++x) {
                Gdiplus::Color color;
                bitmap_.GetPixel(x, y, &color);
                pixels.push_back(color.GetValue());
            }
        }
        return pixels;
    }

    [[nodiscard]] bool Save(const std::string& path) {
        constexpr CLSID kPngEncoder = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
        const std::wstring wide(path.begin(), path.end());  // this example is content with plain letters
        return bitmap_.Save(wide.c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
    }

private:
    Gdiplus::Bitmap bitmap_;
    Gdiplus::Graphics graphics_;
};

/// Whether a chart has been painted: lines, bars and texts in their colours, and no colour on most of the area.
bool HasChart(std::vector<Gdiplus::ARGB> pixels) {
    std::sort(pixels.begin(), pixels.end());
    std::size_t colors = 0;
    std::size_t most = 0;
    for (auto first = pixels.begin(); first != pixels.end(); ++colors) {
        const auto last = std::upper_bound(first, pixels.end(), *first);
        most = std::max(most, static_cast<std::size_t>(last - first));
        first = last;
    }
    return colors >= 4 && most < pixels.size() * 99 / 100;
}

/// Repaints a chart so that `margin` pixels stay free on each side, saves it and says what became of it.
void ShowChart(const Chart& chart, int width, int height, int margin, const std::string& path) {
    CSurface surface(width, height);
    const ChartRect rect{margin, margin, width - margin, height - margin};
    const int status = surface.Repaint(chart.stretch, rect, width, height);
    const std::vector<Gdiplus::ARGB> pixels = surface.Pixels();
    const auto untouched = std::count(pixels.begin(), pixels.end(), kUntouched);
    std::printf("%s, %d x %d: status %d, %s, %d pixels untouched, %s\n", chart.name, width, height, status,
                HasChart(pixels) ? "painted" : "blank", static_cast<int>(untouched),
                surface.Save(path) ? "saved" : "not saved");
}

void ShowAllCharts(const std::string& folder) {
    struct View {
        int width;
        int height;
        int margin;
    };
    for (const View& view : {View{500, 250, 0}, View{1200, 600, 0}, View{640, 360, 30}}) {
        for (const Chart& chart : kCharts) {
            std::string file = std::string(chart.name) + " " + std::to_string(view.width) + ".png";
            std::replace(file.begin(), file.end(), ' ', '-');
            ShowChart(chart, view.width, view.height, view.margin, folder + "\\" + file);
        }
    }
}

void TryImpossibleRequests() {
    constexpr int kWidth = 200;
    constexpr int kHeight = 100;
    constexpr ChartRect kWhole{0, 0, kWidth, kHeight};
    CSurface surface(kWidth, kHeight);
    std::printf("an area of 2^40 pixels: status %d\n", surface.Repaint(StretchRisk, kWhole, 1 << 20, 1 << 20));
    std::printf("an area of no width: status %d\n", surface.Repaint(StretchRisk, kWhole, 0, kHeight));
    StretchRisk(nullptr, &kWhole, kWidth, kHeight);
    StretchRisk(&surface.Graphics(), nullptr, kWidth, kHeight);
    std::printf("no rectangle: status %d\n", surface.Graphics().GetLastStatus());
    constexpr ChartRect kReversed{kWidth, kHeight, 0, 0};
    std::printf("a reversed rectangle: status %d\n", surface.Repaint(StretchRisk, kReversed, kWidth, kHeight));
    const std::vector<Gdiplus::ARGB> pixels = surface.Pixels();
    const bool isUntouched = std::count(pixels.begin(), pixels.end(), kUntouched) == kWidth * kHeight;
    std::printf("the surface after them: %s\n", isUntouched ? "untouched" : "painted");
    std::printf("a possible request again: status %d, ", surface.Repaint(StretchRisk, kWhole, kWidth, kHeight));
    std::printf("%s\n", HasChart(surface.Pixels()) ? "painted" : "blank");
}

/// A window that is being resized repaints all day long.
bool RepaintManyTimes() {
    constexpr int kRounds = 50;
    constexpr int kWarmRounds = 10;
    CSurface surface(500, 250);
    ResourceCount warm{};
    for (int round = 0; round < kRounds; ++round) {
        if (round == kWarmRounds) warm = CountResources();
        for (const Chart& chart : kCharts) surface.Repaint(chart.stretch, {0, 0, 500, 250}, 500, 250);
        surface.Repaint(StretchRisk, {0, 0, 500, 250}, 1 << 20, 1 << 20);  // which is refused
    }
    return IsSteady("repaints 11 to 50", warm, CountResources());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const CGdiplusWork work;
    const auto request = ReadRequestFile(argv[1]);
    std::printf("before a report: status %d\n", CSurface(200, 100).Repaint(StretchRisk, {0, 0, 200, 100}, 200, 100));
    if (const std::uint32_t code = TryGenerateBill(request.get()); code != 0) {
        std::printf("no report: 0x%08X\n", code);
        return 1;
    }
    ShowAllCharts(argv[2]);
    TryImpossibleRequests();
    return RepaintManyTimes() ? 0 : 1;
}
