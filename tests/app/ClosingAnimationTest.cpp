#include "app/ClosingAnimation.h"

#include <gtest/gtest.h>
#include <vector>

namespace turnpost {

namespace {

// Records each position and size, and every repaint. The screen is 15361 by 301 twips.
class FakeClosingWindow final : public ClosingWindow {
  public:
    std::string steps;

    int height() const override { return 700; }
    int width() const override { return 2200; }
    int screenHeight() const override { return 301; }
    int screenWidth() const override { return 15361; }
    void setTopAndHeight(int top, int height) override { note(" down ", top, height); }
    void setLeftAndWidth(int left, int width) override { note(" in ", left, width); }
    void runPendingEvents() override { steps += " paint"; }

  private:
    void note(const char* step, int place, int length) {
        steps += step + std::to_string(place) + "+" + std::to_string(length);
    }
};

} // namespace

// Half a distance is rounded toward zero, and a step that reaches the limit is the last.
TEST(ClosingAnimation, ShrinksToALineAndThenToADot) {
    FakeClosingWindow disobedient;
    playClosingAnimation(disobedient);
    EXPECT_EQ(disobedient.steps, " paint down -149+600 paint down -99+500 down -99+30"
                                 " paint in 6630+2100 paint in 6680+2000");
}

} // namespace turnpost
