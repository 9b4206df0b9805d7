#include "paint/text_block.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "paint/canvas.h"
#include "paint/geometry.h"

namespace tradebill {
namespace {

/// A line without its prefix marks.
struct ShownLine {
    std::string text;
    std::vector<std::size_t> underlined;  ///< where in `text`, ascending; its end counts for nothing
};

std::string_view TakeBoxLine(std::string_view& rest) {
    const std::size_t end = std::min(rest.find_first_of("\r\n"), rest.size());
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end);
    rest.remove_prefix(rest.starts_with("\r\n") ? 2 : std::min<std::size_t>(rest.size(), 1));
    return line;
}

ShownLine WithoutPrefixes(std::string_view line) {
    ShownLine shown;
    while (!line.empty()) {
        if (line.front() == '&') {
            line.remove_prefix(1);
            if (!line.starts_with('&')) {
                shown.underlined.push_back(shown.text.size());
                continue;
            }
        }
        shown.text += line.front();
        line.remove_prefix(1);
    }
    return shown;
}

std::vector<ShownLine> LinesOf(std::string_view text) {
    std::vector<ShownLine> lines;
    while (!text.empty()) lines.push_back(WithoutPrefixes(TakeBoxLine(text)));
    return lines;
}

/// Bytes of the first word with the blanks before it. A double-byte character is a word.
std::size_t WordLength(std::string_view text) {
    const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
    std::size_t end = begin;
    while (end < text.size() && text[end] != ' ') {
        const std::size_t length = GbkCharacterLength(text.substr(end));
        if (length == 2) return end == begin ? end + length : end;
        end += length;
    }
    return end;
}

/// Takes off as many words as fit, at least one, and the blanks behind them.
std::string_view TakeFittingWords(const CCanvas& canvas, std::string_view& line, std::int64_t width) {
    std::size_t end = 0;
    std::int64_t used = 0;
    while (end < line.size()) {
        const std::string_view word = line.substr(end, WordLength(line.substr(end)));
        used += canvas.MeasureText(word).width;
        if (used > width && end != 0) break;
        end += word.size();
    }
    const std::string_view words = line.substr(0, end);
    line.remove_prefix(std::min(line.find_first_not_of(' ', end), line.size()));
    return words;
}

Color SelectedTextColor(CCanvas& canvas) {
    const Color color = canvas.SelectTextColor(0);
    canvas.SelectTextColor(color);
    return color;
}

/// The last character of `part`, a part of the line's text, that is underlined.
std::optional<std::size_t> LastMarkIn(const ShownLine& line, std::string_view part) {
    const auto begin = static_cast<std::size_t>(part.data() - line.text.data());
    const auto behind = std::ranges::lower_bound(line.underlined, begin + part.size());
    if (behind == line.underlined.begin() || *std::prev(behind) < begin) return std::nullopt;
    return *std::prev(behind) - begin;
}

/// Lines below each other, down to where they can't be seen any more.
class CLineWriter {
public:
    CLineWriter(CCanvas& canvas, Point corner, std::int32_t bottom)
        : canvas_(canvas), height_(canvas.Metrics().height), left_(corner.x), top_(corner.y), bottom_(bottom) {}

    /// Writes `part` of `line`, which is all of it or what fits.
    void Write(const ShownLine& line, std::string_view part) {
        if (top_ < bottom_ && !part.empty()) {
            canvas_.WriteText({left_, ClampCoordinate(top_)}, part);
            if (const auto mark = LastMarkIn(line, part)) Underline(part, *mark);
        }
        top_ += height_;
    }

private:
    /// One pixel high, right below the base line.
    void Underline(std::string_view part, std::size_t at) {
        const std::string_view character = part.substr(at, GbkCharacterLength(part.substr(at)));
        const std::int64_t left = std::int64_t{left_} + canvas_.MeasureText(part.substr(0, at)).width;
        const std::int64_t right = left + canvas_.MeasureText(character).width;
        const std::int64_t top = top_ + canvas_.Metrics().ascent + 1;
        canvas_.FillSolid(
            {ClampCoordinate(left), ClampCoordinate(top), ClampCoordinate(right), ClampCoordinate(top + 1)},
            SelectedTextColor(canvas_));
    }

    CCanvas& canvas_;
    std::int32_t height_;
    std::int32_t left_;
    std::int64_t top_;
    std::int32_t bottom_;
};

}  // namespace

TextExtent MeasureTextBlock(const CCanvas& canvas, std::string_view text) {
    TextExtent extent;
    std::int64_t height = 0;
    for (const ShownLine& line : LinesOf(text)) {
        extent.width = std::max(extent.width, canvas.MeasureText(line.text).width);
        height += canvas.Metrics().height;
    }
    extent.height = ClampCoordinate(height);
    return extent;
}

void WriteTextBlock(CCanvas& canvas, Point corner, std::string_view text) {
    CLineWriter writer(canvas, corner, std::numeric_limits<std::int32_t>::max());
    for (const ShownLine& line : LinesOf(text)) writer.Write(line, line.text);
}

void WriteWrappedText(CCanvas& canvas, const Box& box, std::string_view text) {
    const CClipScope clip(canvas, box);
    const std::int64_t width = std::int64_t{box.right} - box.left;
    CLineWriter writer(canvas, {box.left, box.top}, box.bottom);
    for (const ShownLine& line : LinesOf(text)) {
        std::string_view rest = line.text;
        do {
            writer.Write(line, TakeFittingWords(canvas, rest, width));
        } while (!rest.empty());
    }
}

}  // namespace tradebill
