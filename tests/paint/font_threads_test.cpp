// Texts measured and painted on several threads at once.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "paint/canvas.h"
#include "paint/font.h"
#include "paint/raster/raster_canvas.h"
#include "support/gbk_text.h"

namespace tradebill::font_threads_test {
namespace {

using CanvasMaker = std::unique_ptr<CCanvas>(CBitmap& bitmap);

/// What one thread makes of its texts.
struct Outcome {
    std::vector<std::int32_t> measures;
    std::vector<std::uint32_t> pixels;
    bool operator==(const Outcome&) const = default;
};

void AddTexts(CCanvas& canvas, std::int32_t cellHeight, std::int32_t weight, std::int32_t escapement,
              Outcome& outcome) {
    for (const char* const face : {"Arial", "Tahoma"}) {
        const Font font{.face = face, .cellHeight = cellHeight, .weight = weight, .escapement = escapement};
        canvas.SelectFont(font);
        const std::string text = Gbk("账户 Account 1,234.50% ") + face;
        canvas.WriteText({20, 60}, text);
        outcome.measures.push_back(canvas.MeasureText(text).width);
        outcome.measures.push_back(MeasureText(font, text).width);
        outcome.measures.push_back(MetricsOf(font).averageWidth);
    }
}

/// All in sizes that no other test asks for, so that every thread finds them new.
Outcome TextsOf(CanvasMaker* make) {
    Outcome outcome;
    CBitmap bitmap(300, 100, kWhite);
    const auto canvas = make(bitmap);
    canvas->SelectTextBackground(TextBackground::Transparent);
    for (std::int32_t cellHeight = 37; cellHeight < 47; ++cellHeight) {
        for (const std::int32_t weight : {400, 700}) {
            for (const std::int32_t escapement : {0, 137}) AddTexts(*canvas, cellHeight, weight, escapement, outcome);
        }
    }
    outcome.pixels.assign(bitmap.Pixels().begin(), bitmap.Pixels().end());
    return outcome;
}

class FontThreads : public testing::TestWithParam<CanvasMaker*> {};

TEST_P(FontThreads, GetWhatOneGetsAlone) {
    constexpr std::size_t kThreads = 4;
    std::vector<Outcome> outcomes(kThreads);
    {
        std::vector<std::jthread> threads;
        for (Outcome& outcome : outcomes) {
            threads.emplace_back([&outcome] {
                EXPECT_TRUE(HasFontsFor("0"));
                outcome = TextsOf(GetParam());
            });
        }
    }
    const Outcome alone = TextsOf(GetParam());
    for (const Outcome& outcome : outcomes) EXPECT_TRUE(outcome == alone);
}

INSTANTIATE_TEST_SUITE_P(Canvases, FontThreads, testing::Values(&MakeCanvas, &MakeRasterCanvas));

}  // namespace
}  // namespace tradebill::font_threads_test
