// Fonts and measures of the system.
#pragma once

#include <windows.h>

#include <string>

#include "platform/font.h"
#include "platform/windows/gdi_objects.h"

namespace tradebill {

[[nodiscard]] CGdiObject MakeFont(const Font& font);

/// In the font that is selected into `context`.
[[nodiscard]] TextExtent ExtentIn(HDC context, const std::wstring& text);
[[nodiscard]] TextMetrics MetricsIn(HDC context);

}  // namespace tradebill
