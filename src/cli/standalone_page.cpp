#include "cli/standalone_page.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "cli/output_file.h"
#include "images/picture_names.h"
#include "images/report_images.h"
#include "page/page_pictures.h"
#include "platform/file.h"
#include "platform/paths.h"
#include "platform/text_encoding.h"
#include "report/report.h"

namespace tradebill {
namespace {

std::string Base64(std::string_view bytes) {
    constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::string_view group = bytes.substr(at, 3);
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < 3; ++i)
            bits = bits << 8 | (i < group.size() ? static_cast<unsigned char>(group[i]) : 0u);
        for (std::size_t i = 0; i < 4; ++i) text += i <= group.size() ? kDigits[bits >> (18 - 6 * i) & 0x3F] : '=';
    }
    return text;
}

/// The picture itself in place of its path. It bears its name, by which the page's scripts tell the two buttons apart.
std::string DataAddress(const CReport& report, std::string_view picture) {
    const auto bytes = CFile(FullPicturePath(report.ReportDocument, picture), FileMode::Read).ReadAll();
    const std::string_view type = picture.ends_with(".png") ? "image/png" : "image/jpeg";
    return std::string("data:").append(type).append(";name=").append(picture).append(";base64,") +
           Base64(bytes.value_or(""));
}

void ReplaceAll(std::string& text, const std::string& from, const std::string& to) {
    std::string result;
    std::size_t done = 0;
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, done)) {
        result.append(text, done, at - done).append(to);
        done = at + from.size();
    }
    text = result.append(text, done);
}

/// Only the report's own pictures, in quotes as the page has them: cells hold what brokers print.
void TakeInPictures(const CReport& report, std::string& page) {
    for (const std::string_view picture : PagePictures()) {
        const std::string address = "\"" + DataAddress(report, picture) + "\"";
        for (const std::string& path : {PagePicturePath(report, picture), ScriptPicturePath(report, picture)}) {
            ReplaceAll(page, "\"" + path + "\"", address);
        }
    }
}

}  // namespace

bool WriteStandalonePage(const CReport& report, const std::string& pagePath, const std::string& file) {
    constexpr std::string_view kHead = "<head>\r\n";
    const auto bytes = CFile(pagePath, FileMode::Read).ReadAll();
    if (!bytes || IsSameFile(pagePath, file)) return false;
    std::string page = GbkToUtf8(*bytes);
    TakeInPictures(report, page);
    const std::size_t head = page.find(kHead);
    if (head != std::string::npos) page.insert(head + kHead.size(), "<meta charset=\"utf-8\">\r\n");
    return SaveWhole(file, [&page](std::ostream& out) { out << page; });
}

}  // namespace tradebill
