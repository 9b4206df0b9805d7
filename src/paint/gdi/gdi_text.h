// Texts on a device context. A face that was made for Latin gets its Chinese characters from another: which one, and
// how large, isn't left to the system, whose own choice depends on its locale.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "paint/font.h"
#include "paint/gdi/gdi_objects.h"
#include "paint/geometry.h"

namespace tradebill {

/// Writes and measures in one font at a time.
/// REQUIRES: the context outlives it.
class CGdiText {
public:
    explicit CGdiText(HDC context) : context_(context) {}
    CGdiText(const CGdiText&) = delete;
    CGdiText& operator=(const CGdiText&) = delete;
    ~CGdiText();

    void Select(const Font& font);

    // Texts are GBK.
    [[nodiscard]] TextExtent Measure(std::string_view text);
    [[nodiscard]] TextMetrics Metrics();
    /// The left top corner of the first cell at `point`.
    void Write(Point point, std::string_view text);

private:
    enum class Face { Own, StandIn };

    /// Characters that one of both faces has; the stand-in gets those that neither has, too.
    struct Run {
        Face face;
        std::wstring text;
    };

    void Use(Face face);
    [[nodiscard]] std::vector<Run> RunsOf(const std::wstring& text);
    [[nodiscard]] std::int32_t WidthOf(const Run& run);

    HDC context_;
    Font font_;
    CGdiObject own_;
    CGdiObject standIn_;
    HGDIOBJ former_ = nullptr;  ///< the context's own font
};

}  // namespace tradebill
