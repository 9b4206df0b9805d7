#include "paint/vector_cases.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <stdexcept>

#include "paint/canvas.h"

namespace tradebill {
namespace {

constexpr std::uint32_t kWhitePixel = 0xFFFFFF;

/// "RRGGBB" as a pixel; swapped it is a colour.
std::uint32_t HexOf(const std::string& text) {
    return static_cast<std::uint32_t>(std::stoul(text, nullptr, 16));
}

Color ColorOf(const std::string& text) {
    return PixelOf(HexOf(text));  // the same swap both ways
}

/// Reads the lines between "case" and "end".
class CCaseReader {
public:
    explicit CCaseReader(std::istream& in) : in_(in) {}

    VectorCase Read(const std::string& name) {
        VectorCase result;
        result.name = name;
        for (std::string line; std::getline(in_, line) && line != "end";) ReadLine(line, result);
        return result;
    }

private:
    void ReadLine(const std::string& line, VectorCase& result) {
        std::istringstream words(line);
        std::string word;
        words >> word;
        if (word == "canvas") {
            words >> result.width >> result.height;
            const auto size = static_cast<std::size_t>(result.width) * static_cast<std::size_t>(result.height);
            result.pixels.assign(size, kWhitePixel);
        } else if (word == "legend") {
            for (std::string letter, color; words >> letter >> color;) legend_[letter[0]] = HexOf(color);
        } else if (word == "picture") {
            words >> left_ >> y_;
            inPicture_ = true;
        } else if (inPicture_) {
            ReadRow(word, words, result);
        } else {
            result.operations.push_back(line);
        }
    }

    /// "3.12a x2": three letters ".", twelve "a", and the row twice.
    void ReadRow(const std::string& letters, std::istream& words, VectorCase& result) {
        std::vector<std::uint32_t> row;
        std::size_t repeat = 0;
        for (const char letter : letters) {
            if (std::isdigit(static_cast<unsigned char>(letter)) != 0) {
                repeat = repeat * 10 + static_cast<std::size_t>(letter - '0');
            } else {
                row.insert(row.end(), std::max<std::size_t>(repeat, 1), legend_.at(letter));
                repeat = 0;
            }
        }
        std::string times;
        const int count = words >> times ? std::stoi(times.substr(1)) : 1;
        for (int i = 0; i < count; ++i, ++y_) {
            const std::size_t at = y_ * static_cast<std::size_t>(result.width) + left_;
            if (at + row.size() > result.pixels.size())
                throw std::runtime_error(result.name + ": row outside of canvas");
            std::ranges::copy(row, result.pixels.begin() + static_cast<std::ptrdiff_t>(at));
        }
    }

    std::istream& in_;
    std::map<char, std::uint32_t> legend_;
    std::size_t left_ = 0;
    std::size_t y_ = 0;
    bool inPicture_ = false;
};

/// One operation with its arguments.
class CArguments {
public:
    explicit CArguments(const std::string& line) : words_(line) { words_ >> name_; }

    [[nodiscard]] const std::string& Name() const { return name_; }
    std::int32_t Number() {
        std::int32_t number = 0;
        words_ >> number;
        return number;
    }
    Point NextPoint() {
        const std::int32_t x = Number();
        return {x, Number()};
    }
    Box NextBox() {
        const Point leftTop = NextPoint();
        const Point rightBottom = NextPoint();
        return {leftTop.x, leftTop.y, rightBottom.x, rightBottom.y};
    }
    std::string Word() {
        std::string word;
        words_ >> word;
        return word;
    }
    std::vector<Point> Points() {
        std::vector<Point> points;
        for (Point point; words_ >> point.x >> point.y;) points.push_back(point);
        return points;
    }

private:
    std::istringstream words_;
    std::string name_;
};

using Operation = void (*)(CCanvas& canvas, CArguments& arguments);

void Fill(CCanvas& canvas, CArguments& arguments) {
    const Point leftTop = arguments.NextPoint();
    const Point size = arguments.NextPoint();
    canvas.FillSolid({leftTop.x, leftTop.y, leftTop.x + size.x, leftTop.y + size.y}, ColorOf(arguments.Word()));
}

void DrawPie(CCanvas& canvas, CArguments& arguments) {
    const Box box = arguments.NextBox();
    const Point start = arguments.NextPoint();
    canvas.Pie(box, start, arguments.NextPoint());
}

void SelectPen(CCanvas& canvas, CArguments& arguments) {
    const std::int32_t width = arguments.Number();
    canvas.SelectPen({.width = width, .color = ColorOf(arguments.Word())});
}

void SelectBrush(CCanvas& canvas, CArguments& arguments) {
    const std::string color = arguments.Word();
    canvas.SelectBrush(color == "none" ? Brush() : Brush(ColorOf(color)));
}

void SetOnePixel(CCanvas& canvas, CArguments& arguments) {
    const Point point = arguments.NextPoint();
    canvas.SetPixel(point, ColorOf(arguments.Word()));
}

const std::map<std::string, Operation>& Operations() {
    static const std::map<std::string, Operation> operations = {
        {"Pen", SelectPen},
        {"Brush", SelectBrush},
        {"MoveTo", [](CCanvas& canvas, CArguments& arguments) { canvas.MoveTo(arguments.NextPoint()); }},
        {"LineTo", [](CCanvas& canvas, CArguments& arguments) { canvas.LineTo(arguments.NextPoint()); }},
        {"Rectangle", [](CCanvas& canvas, CArguments& arguments) { canvas.Rectangle(arguments.NextBox()); }},
        {"Ellipse", [](CCanvas& canvas, CArguments& arguments) { canvas.Ellipse(arguments.NextBox()); }},
        {"Pie", DrawPie},
        {"Polygon", [](CCanvas& canvas, CArguments& arguments) { canvas.Polygon(arguments.Points()); }},
        {"BeginPath", [](CCanvas& canvas, CArguments&) { canvas.BeginPath(); }},
        {"EndPath", [](CCanvas& canvas, CArguments&) { canvas.EndPath(); }},
        {"FillPath", [](CCanvas& canvas, CArguments&) { canvas.FillPath(); }},
        {"FillSolidRect", Fill},
        {"SetPixel", SetOnePixel},
    };
    return operations;
}

}  // namespace

std::vector<VectorCase> ReadVectorCases(const std::filesystem::path& path) {
    std::ifstream in(path);
    if (!in) throw std::runtime_error("can't read " + path.string());
    std::vector<VectorCase> cases;
    for (std::string line; std::getline(in, line);) {
        std::istringstream words(line);
        std::string word;
        std::string name;
        if (words >> word >> name && word == "case") cases.push_back(CCaseReader(in).Read(name));
    }
    return cases;
}

std::vector<std::uint32_t> PaintVectorCase(const VectorCase& vectorCase, CanvasMaker& make) {
    CBitmap bitmap(vectorCase.width, vectorCase.height, kWhite);
    const auto canvas = make(bitmap);
    for (const std::string& line : vectorCase.operations) {
        CArguments arguments(line);
        const auto operation = Operations().find(arguments.Name());
        if (operation == Operations().end()) throw std::runtime_error(vectorCase.name + ": unknown operation " + line);
        operation->second(*canvas, arguments);
    }
    std::vector<std::uint32_t> pixels;
    for (std::int32_t y = 0; y < bitmap.Height(); ++y) {
        pixels.insert(pixels.end(), bitmap.Row(y), bitmap.Row(y) + bitmap.Width());
    }
    return pixels;
}

}  // namespace tradebill
