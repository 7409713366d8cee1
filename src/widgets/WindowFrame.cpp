#include "widgets/WindowFrame.h"

#include <QDialog>
#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#if QT_CONFIG(xcb)
#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>
#endif

namespace turnpost {

namespace {

#if QT_CONFIG(xcb)
void leaveTaskBar(const QWidget* window) {
    // The offscreen platform also offers an X11 connection, but its windows are not X11 windows.
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t* server = x11 == nullptr ? nullptr : x11->connection();
    if (server == nullptr || QGuiApplication::platformName() != "xcb") {
        return;
    }
    const auto atomOf = [server](std::string_view name) -> xcb_atom_t {
        const auto asked =
            xcb_intern_atom(server, 0, static_cast<uint16_t>(name.size()), name.data());
        const std::unique_ptr<xcb_intern_atom_reply_t, void (*)(void*)> reply(
            xcb_intern_atom_reply(server, asked, nullptr), std::free);
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    };
    const xcb_atom_t skip = atomOf("_NET_WM_STATE_SKIP_TASKBAR");
    xcb_change_property(server, XCB_PROP_MODE_APPEND, static_cast<xcb_window_t>(window->winId()),
                        atomOf("_NET_WM_STATE"), XCB_ATOM_ATOM, 32, 1, &skip);
}
#else
// Without X11 a dialog with an owner has no task-bar entry anyway.
void leaveTaskBar(const QWidget*) {}
#endif

class Placing final : public QObject {
  public:
    Placing(QWidget* placed, bool isDialog) : QObject(placed), window_(placed), dialog_(isDialog) {
        window_->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == window_) {
            if (event->type() == QEvent::WinIdChange && dialog_ && window_->windowHandle()) {
                leaveTaskBar(window_);
            } else if (event->type() == QEvent::Show && !shown_) {
                shown_ = true;
                centre();
            } else if (shown_ && !framed_ && tellsOfFrame(event->type()) &&
                       margins_ != window_->windowHandle()->frameMargins()) {
                framed_ = true;
                QMetaObject::invokeMethod(
                    this, [this] { centre(); }, Qt::QueuedConnection);
            }
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    // Some systems add the frame, and report its size, only after the window is shown.
    static bool tellsOfFrame(QEvent::Type type) {
        return type == QEvent::Paint || type == QEvent::Move || type == QEvent::WindowActivate;
    }

    void centre() {
        margins_ = window_->windowHandle()->frameMargins();
        QRect frame = window_->geometry().marginsAdded(margins_);
        frame.moveCenter(window_->screen()->availableGeometry().center());
        window_->move(frame.topLeft());
    }

    QWidget* window_;
    bool dialog_;
    bool shown_ = false;
    bool framed_ = false;
    QMargins margins_;
};

} // namespace

void centreOnScreen(QWidget* window) {
    new Placing(window, false);
}

void frameAsDialog(QDialog* window) {
    window->setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                           Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint |
                           Qt::MSWindowsFixedSizeDialogHint);
    new Placing(window, true);
}

} // namespace turnpost
