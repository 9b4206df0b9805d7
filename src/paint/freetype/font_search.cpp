#include "paint/font_search.h"

#include <cstdint>
#include <memory>
#include <new>
#include <string_view>
#include <system_error>
#include <thread>

#include "base/gbk.h"
#include "paint/font.h"

namespace tradebill {
namespace {

/// One character of the family itself, and one that it lacks.
constexpr std::string_view kSample = "0账"_gbk;

void FindFonts() {
    try {
        for (const std::int32_t weight : {400, 600}) {
            static_cast<void>(MeasureText({.face = "Arial", .cellHeight = 16, .weight = weight}, kSample));
        }
    } catch (const std::bad_alloc&) {
        return;  // the first text meets it again
    }
}

}  // namespace

struct CFontSearch::Worker {
    std::jthread thread;
};

CFontSearch::CFontSearch() : worker_(std::make_unique<Worker>()) {
    try {
        worker_->thread = std::jthread(FindFonts);
    } catch (const std::system_error&) {
        return;  // the first text finds them
    }
}

CFontSearch::~CFontSearch() = default;

}  // namespace tradebill
