#include "app/qt/MainClosing.h"

#include "app/ClosingAnimation.h"
#include "widgets/Twips.h"

#include <QCoreApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace turnpost {

namespace {

class ClosingWidget final : public ClosingWindow {
  public:
    explicit ClosingWidget(QWidget* closed)
        : window(closed), frame(closed->frameGeometry()),
          border(frame.size() - closed->geometry().size()) {}

    int height() const override { return frame.height() * twipsPerPixel; }
    int width() const override { return frame.width() * twipsPerPixel; }
    int screenHeight() const override { return window->screen()->size().height() * twipsPerPixel; }
    int screenWidth() const override { return window->screen()->size().width() * twipsPerPixel; }

    void setTopAndHeight(int top, int height) override {
        frame.setHeight(toPixels(height));
        frame.moveTop(window->screen()->geometry().top() + toPixels(top));
        place();
    }

    void setLeftAndWidth(int left, int width) override {
        frame.setWidth(toPixels(width));
        frame.moveLeft(window->screen()->geometry().left() + toPixels(left));
        place();
    }

    void runPendingEvents() override {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }

  private:
    void place() {
        const QSize inner = frame.size() - border;
        window->setFixedSize(std::max(1, inner.width()), std::max(1, inner.height()));
        window->move(frame.topLeft());
    }

    QWidget* window;
    QRect frame;
    QSize border;
};

} // namespace

void playMainClosing(QWidget* window) {
    ClosingWidget closing(window);
    playClosingAnimation(closing);
}

} // namespace turnpost
