// What no report can do without, and nothing else, as a program to hold a report against: each statement opened, read
// and its newlines found once; twelve JPEGs and two PNGs encoded; the page's bytes written once, from memory, in
// blocks.
//
// Usage: unavoidable_work BILL-FOLDER ACCOUNT FIRST-DAY LAST-DAY PAGE-BYTES OUT-FOLDER (days as yyyymmdd)
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "bare_pass.h"
#include "made_pictures.h"

namespace tradebill {
namespace {

constexpr std::size_t kPageBlock = std::size_t{256} * 1024;

std::chrono::sys_days DayOf(const std::string& text) {
    return std::chrono::year(std::stoi(text.substr(0, 4))) / std::stoi(text.substr(4, 2)) /
           std::stoi(text.substr(6, 2));
}

std::size_t ReadStatements(const std::string& stem, const std::string& first, const std::string& last) {
    std::vector<char> buffer;
    std::size_t lines = 0;
    for (auto day = DayOf(first); day <= DayOf(last); day += std::chrono::days(1)) {
        const std::chrono::year_month_day date(day);
        char dayText[32];
        std::snprintf(dayText, sizeof dayText, "%04d%02u%02u", static_cast<int>(date.year()),
                      static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
        lines += CountLines((stem + dayText + "o.txt").c_str(), buffer);
    }
    return lines;
}

void EncodePictures(const std::string& folder) {
    for (const MadePicture& picture : MakePictures()) EncodeJpeg(picture, folder + "/" + picture.name + ".jpg");
    for (const char* const name : {"/BillShrink.png", "/BillExpand.png"}) EncodeMark(folder + name);
}

/// A page's row of nine cells.
std::string PageRow() {
    std::string row = "<tr class='billclr1'>\r\n";
    for (int cell = 0; cell < 9; ++cell) {
        row +=
            "<td style=\"padding:5px 0px; overflow:hidden; white-space:nowrap;\"><span class='matchspannormal'>"
            "20140102</span></td>";
    }
    return row + "</tr>\r\n";
}

/// Fills each block from a ready row, so that all bytes are moved into it as a page's must be.
void WritePage(const std::string& path, std::size_t bytes) {
    const std::string row = PageRow();
    std::vector<char> block(kPageBlock);
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    std::size_t inRow = 0;
    while (bytes > 0) {
        const std::size_t size = std::min(bytes, block.size());
        for (std::size_t filled = 0; filled < size;) {
            const std::size_t piece = std::min(row.size() - inRow, size - filled);
            std::memcpy(block.data() + filled, row.data() + inRow, piece);
            inRow = (inRow + piece) % row.size();
            filled += piece;
        }
        if (::write(file, block.data(), size) != static_cast<ssize_t>(size)) {
            throw std::runtime_error("can't write " + path);
        }
        bytes -= size;
    }
    ::close(file);
}

void DoAll(char** arguments) {
    const std::string stem = std::string(arguments[1]) + "/D" + arguments[2] + ".";
    const std::string out = arguments[6];
    const std::string pictures = out + "/Image_files";
    std::filesystem::create_directories(pictures);
    const std::size_t lines = ReadStatements(stem, arguments[3], arguments[4]);
    EncodePictures(pictures);
    WritePage(out + "/TradeBill.html", std::strtoull(arguments[5], nullptr, 10));
    std::printf("%zu lines\n", lines);
}

}  // namespace
}  // namespace tradebill

int main(int count, char** arguments) {
    if (count != 7) {
        std::fprintf(stderr, "usage: unavoidable_work BILL-FOLDER ACCOUNT FIRST-DAY LAST-DAY PAGE-BYTES OUT-FOLDER\n");
        return 2;
    }
    try {
        tradebill::DoAll(arguments);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
