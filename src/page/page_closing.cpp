#include "page/page_closing.h"

#include <cstddef>
#include <string>
#include <string_view>

#include "base/text.h"
#include "page/page_scan.h"

namespace tradebill {

std::string WrappedPage(std::string_view page) {
    std::string result;
    result.reserve(page.size() + 64);
    result += "<html>\r\n";
    while (!page.empty()) {
        const std::string_view line = TakePageLine(page);
        if (IsWrapperLine(line)) continue;
        result += line;
        result += kPageLineEnd;
        if (Contains(line, kHeadEnd)) result += "<body>\r\n";
    }
    result += kPageEnd;
    return result;
}

std::size_t HeadEndLine(std::string_view page) {
    std::size_t start = 0;
    std::string_view rest = page;
    while (!rest.empty()) {
        start = page.size() - rest.size();
        if (Contains(TakeLine(rest), kHeadEnd)) break;
    }
    return start;
}

std::string WithBlockBefore(std::string_view rest, std::string_view block) {
    std::string result(block);
    while (!rest.empty()) {
        result += TakePageLine(rest);
        result += kPageLineEnd;
    }
    return result;
}

}  // namespace tradebill
