#include "paint/linux/text_vectors.h"

#include <fstream>
#include <sstream>

namespace tradebill {
namespace {

std::string BytesOf(const std::string& hex) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
        bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
    }
    return bytes;
}

void ReadLine(const std::string& line, FontVectors& font) {
    std::istringstream words(line);
    std::string word;
    words >> word;
    if (word == "font") {
        int weight = 0;
        std::string form;
        words >> font.file >> font.cellHeight >> weight >> form;
        font.isThickened = form == "thickened";
    } else if (word == "metrics") {
        TextMetrics& metrics = font.metrics;
        words >> metrics.height >> metrics.ascent >> metrics.descent >> metrics.internalLeading >>
            metrics.averageWidth >> metrics.maxWidth;
    } else if (word == "extent") {
        TextVector text;
        std::string hex;
        words >> text.extent.width >> text.extent.height >> hex;
        text.text = BytesOf(hex);
        font.texts.push_back(text);
    }
}

}  // namespace

std::vector<FontVectors> ReadFontVectors(const std::filesystem::path& path) {
    std::ifstream in(path);
    std::vector<FontVectors> fonts;
    for (std::string line; std::getline(in, line);) {
        std::istringstream words(line);
        std::string word;
        std::string name;
        if (!(words >> word >> name) || word != "case") continue;
        FontVectors font;
        font.name = name;
        while (std::getline(in, line) && line != "end") ReadLine(line, font);
        fonts.push_back(font);
    }
    return fonts;
}

}  // namespace tradebill
