#include "touch/EqPlot.h"

#include <gtest/gtest.h>

namespace lumbra::test {

using Type = EqResponse::Type;

// Where a section's response is known without its formula: far from its frequency, at it, and half way.
TEST(EqResponse, SectionsAnswerAsTheirTypesMust) {
    const std::tuple<const char*, EqResponse::Band, double, double> cases[] = {
        {"a bypassed band is flat", {Type::Bypass, 1000, 12}, 1000, 0},
        {"a high-pass is down by 3 dB at its frequency", {Type::HighPass, 1000, 0}, 1000, -3.01},
        {"and falls by 12 dB an octave", {Type::HighPass, 1000, 0}, 125, -36.1},
        {"a low-pass lets the lows pass, whatever its gain", {Type::LowPass, 5000, 15}, 50, 0},
        {"a high shelf has half its gain at its frequency", {Type::HighShelf, 1000, 9}, 1000, 4.5},
        {"a low shelf has its whole gain below", {Type::LowShelf, 5000, -12}, 30, -12},
        {"a parametric band has its gain at its frequency", {Type::Parametric, 1000, 15}, 1000, 15},
        {"half of it half an octave away", {Type::Parametric, 1000, 6}, 1414.2, 3},
    };
    for (const auto& [what, band, frequency, decibels] : cases)
        EXPECT_NEAR(EqResponse::decibels(band, frequency), decibels, 0.12) << what;
}

TEST(EqResponse, CurvesSpanTheAxisAndAddUp) {
    EqResponse response;
    const EqResponse::Band bass{Type::LowShelf, 300, 6};
    const EqResponse::Band middle{Type::Parametric, 1000, -4};
    EXPECT_TRUE(response.setBand(0, bass));
    EXPECT_TRUE(response.setBand(6, middle));
    EXPECT_FALSE(response.setBand(6, middle)) << "a band that stays must cost nothing";
    for (std::size_t point = 0; point < EqResponse::POINTS; point += 17) {
        const double f = EqResponse::frequencyAt(point);
        EXPECT_NEAR(response.sum()[point], EqResponse::decibels(bass, f) + EqResponse::decibels(middle, f),
                    1e-9);
    }
    EXPECT_NEAR(response.highest().decibels, 6, 0.1);
    EXPECT_NEAR(EqResponse::frequencyAt(response.lowest().point), 1000, 50);
    EXPECT_TRUE(response.setBand(0, {}));
    EXPECT_EQ(response.sum(), response.band(6)) << "what is bypassed again must leave the sum";
}

TEST(EqPlot, LabelsThatCollideGiveWayToThoseBefore) {
    const std::tuple<const char*, std::vector<EqPlot::Stretch>, std::vector<bool>> cases[] = {
        {"on the first", {{0, 10}, {90, 100}, {8, 18}}, {true, true, false}},
        {"just clear of both", {{0, 10}, {24, 34}, {12, 22}}, {true, true, true}},
        {"too near to the second", {{0, 10}, {23, 33}, {12, 22}}, {true, true, false}},
        {"one that is not shown is in nobody's way", {{0, 10}, {5, 20}, {15, 25}}, {true, false, true}},
    };
    for (const auto& [what, labels, shown] : cases)
        EXPECT_EQ(EqPlot::shownLabels(labels, 2), shown) << what;
}

} // namespace lumbra::test
