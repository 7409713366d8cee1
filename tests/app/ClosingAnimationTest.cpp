#include "app/ClosingAnimation.h"

#include <gtest/gtest.h>
#include <vector>

namespace turnpost {

namespace {

// Writes down each place and size, and every repainting. The screen is 15361 by 301 twips.
class FakeClosingWindow final : public ClosingWindow {
  public:
    explicit FakeClosingWindow(bool obedient) : obeys(obedient) {}

    std::string steps;

    int height() const override { return size.first; }
    int width() const override { return size.second; }
    int screenHeight() const override { return 301; }
    int screenWidth() const override { return 15361; }
    void setTopAndHeight(int top, int height) override { note(" down ", top, height, size.first); }
    void setLeftAndWidth(int left, int width) override { note(" in ", left, width, size.second); }
    void runPendingEvents() override { steps += " paint"; }

  private:
    void note(const char* step, int place, int length, int& current) {
        steps += step + std::to_string(place) + "+" + std::to_string(length);
        current = obeys ? length : current;
    }

    bool obeys;
    std::pair<int, int> size{700, 2200};
};

} // namespace

// The remainder of a halved distance is dropped toward zero; the limits themselves end the steps.
TEST(ClosingAnimation, ShrinksCentredToALineAndThenToADotWhetherTheWindowObeysOrNot) {
    for (const bool obeys : {true, false}) {
        FakeClosingWindow window(obeys);
        playClosingAnimation(window);
        EXPECT_EQ(window.steps, " paint down -149+600 paint down -99+500 down -99+30"
                                " paint in 6630+2100 paint in 6680+2000");
    }
}

} // namespace turnpost
