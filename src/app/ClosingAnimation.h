#pragma once

namespace turnpost {

/// A window that the closing animation moves and resizes. All lengths are in twips and include
/// title bar and border.
class ClosingWindow {
  public:
    virtual ~ClosingWindow() = default;

    virtual int height() const = 0;
    virtual int width() const = 0;
    virtual int screenHeight() const = 0;
    virtual int screenWidth() const = 0;
    virtual void setTopAndHeight(int top, int height) = 0;
    virtual void setLeftAndWidth(int left, int width) = 0;

    /// Lets pending window events run, so that the window repaints.
    virtual void runPendingEvents() = 0;
};

/// Shrinks the window, centred, to a line and then to a dot, as fast as it redraws. Even where the
/// window system ignores the requests, the number of steps is bounded.
void playClosingAnimation(ClosingWindow& window);

} // namespace turnpost
