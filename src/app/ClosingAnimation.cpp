#include "app/ClosingAnimation.h"

namespace turnpost {

namespace {

constexpr int stepLength = 100;
constexpr int lastStepHeight = 500;
constexpr int finalHeight = 30;
constexpr int lastStepWidth = 2000;

} // namespace

void playClosingAnimation(ClosingWindow& window) {
    int height = window.height();
    int top = 0;
    for (int steps = height / 2; steps > 0; --steps) {
        window.runPendingEvents();
        height -= stepLength;
        top = (window.screenHeight() - height) / 2;
        window.setTopAndHeight(top, height);
        if (height <= lastStepHeight) {
            break;
        }
    }
    window.setTopAndHeight(top, finalHeight);
    int width = window.width();
    for (int steps = width / 2; steps > 0; --steps) {
        window.runPendingEvents();
        width -= stepLength;
        window.setLeftAndWidth((window.screenWidth() - width) / 2, width);
        if (width <= lastStepWidth) {
            break;
        }
    }
}

} // namespace turnpost
