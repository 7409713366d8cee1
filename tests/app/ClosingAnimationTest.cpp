#include "app/ClosingAnimation.h"

#include <gtest/gtest.h>
#include <vector>

namespace turnpost {

namespace {

using Steps = std::vector<std::pair<int, int>>;

// A window on a screen of 15360 twips by a height of its own.
class FakeClosingWindow final : public ClosingWindow {
  public:
    std::pair<int, int> size{700, 2200};
    bool obeys = true;
    Steps vertical;
    Steps horizontal;

    int height() const override { return size.first; }
    int width() const override { return size.second; }
    int screenHeight() const override { return 301; }
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

// The remainder of a halved distance is dropped toward zero; the limits themselves end the steps.
TEST(ClosingAnimation, ShrinksCentredToALineAndThenToADotWhetherTheWindowObeysOrNot) {
    for (const bool obeys : {true, false}) {
        FakeClosingWindow window;
        window.obeys = obeys;
        playClosingAnimation(window);
        EXPECT_EQ(window.vertical, Steps({{-149, 600}, {-99, 500}, {-99, 30}}));
        EXPECT_EQ(window.horizontal, Steps({{6630, 2100}, {6680, 2000}}));
    }
}

} // namespace turnpost
