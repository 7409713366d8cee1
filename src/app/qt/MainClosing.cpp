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
        : window_(closed), frame_(closed->frameGeometry()),
          border_(frame_.size() - closed->geometry().size()) {}

    int height() const override { return frame_.height() * twipsPerPixel; }
    int width() const override { return frame_.width() * twipsPerPixel; }
    int screenHeight() const override { return window_->screen()->size().height() * twipsPerPixel; }
    int screenWidth() const override { return window_->screen()->size().width() * twipsPerPixel; }

    void setTopAndHeight(int top, int height) override {
        frame_.setHeight(toPixels(height));
        frame_.moveTop(window_->screen()->geometry().top() + toPixels(top));
        place();
    }

    void setLeftAndWidth(int left, int width) override {
        frame_.setWidth(toPixels(width));
        frame_.moveLeft(window_->screen()->geometry().left() + toPixels(left));
        place();
    }

    void runPendingEvents() override {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }

  private:
    void place() {
        const QSize inner = frame_.size() - border_;
        window_->setFixedSize(std::max(1, inner.width()), std::max(1, inner.height()));
        window_->move(frame_.topLeft());
    }

    QWidget* window_;
    QRect frame_;
    QSize border_;
};

} // namespace

void playMainClosing(QWidget* window) {
    ClosingWidget closing(window);
    playClosingAnimation(closing);
}

} // namespace turnpost
