#include "app/ClosingAnimation.h"

#include <gtest/gtest.h>
#include <vector>

namespace turnpost {

namespace {

using Steps = std::vector<std::pair<int, int>>;

// A window on a screen of 15360 twips by a height of its own.
class FakeClosingWindow final : public ClosingWindow {
  public:
    std::pair<int, int> size{7635, 9690};
    int screen = 11520;
    bool obeys = true;
    Steps vertical;
    Steps horizontal;

    int height() const override { return size.first; }
    int width() const override { return size.second; }
    int screenHeight() const override { return screen; }
    int screenWidth() const override { return 15360; }
    void setTopAndHeight(int top, int height) override {
        EXPECT_TRUE(horizontal.empty()) << "height first, then width";
        vertical.emplace_back(top, height);
        size.first = obeys ? height : size.first;
    }
    void setLeftAndWidth(int left, int width) override {
        EXPECT_EQ(repaints, vertical.size() + horizontal.size()) << "it must repaint at every step";
        horizontal.emplace_back(left, width);
        size.second = obeys ? width : size.second;
    }
    void runPendingEvents() override { ++repaints; }

  private:
    size_t repaints = 0;
};

} // namespace

TEST(ClosingAnimation, ShrinksCentredInStepsOf100ToALineAndThenToADotObeyedOrNot) {
    for (const bool obeys : {true, false}) {
        FakeClosingWindow window;
        window.obeys = obeys;
        playClosingAnimation(window);
        // 7635 - 72 * 100 is the first height of at most 500; the last entry is the line.
        ASSERT_EQ(window.vertical.size(), 73U);
        EXPECT_EQ(window.vertical[0], std::pair(1992, 7535));
        EXPECT_EQ(window.vertical[71], std::pair(5542, 435));
        EXPECT_EQ(window.vertical[72], std::pair(5542, 30));
        // 9690 - 77 * 100 is the first width of at most 2000.
        ASSERT_EQ(window.horizontal.size(), 77U);
        EXPECT_EQ(window.horizontal[76], std::pair(6685, 1990));
    }
}

TEST(ClosingAnimation, StopsAtTheLimitsThemselvesAndDropsTheRemainderTowardZero) {
    FakeClosingWindow window;
    window.size = {700, 2100};
    window.screen = 301;
    playClosingAnimation(window);
    EXPECT_EQ(window.vertical, Steps({{-149, 600}, {-99, 500}, {-99, 30}}));
    EXPECT_EQ(window.horizontal, Steps({{6680, 2000}}));
}

} // namespace turnpost
