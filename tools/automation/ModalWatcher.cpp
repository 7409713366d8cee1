#include "automation/ModalWatcher.h"

#include <QApplication>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <algorithm>

namespace turnpost::automation {

namespace {

constexpr int tick = 5;           // milliseconds
constexpr int openTimeout = 4000; // ticks

} // namespace

ModalWatcher::ModalWatcher() {
    connect(&timer_, &QTimer::timeout, this, &ModalWatcher::look);
    timer_.start(tick);
}

void ModalWatcher::expect(const QString& name, Action action) {
    expected_.push_back({name, std::move(action)});
}

void ModalWatcher::expectMessage() {
    expect("", [this](QWidget& window) { readMessage(window); });
}

void ModalWatcher::readMessage(QWidget& window) {
    auto* box = qobject_cast<QMessageBox*>(&window);
    if (box == nullptr) {
        seenFaults_.emplace_back("no message box");
        window.close();
        return;
    }
    seenTexts_.push_back(box->text().toStdString());
    box->button(QMessageBox::Ok)->click();
}

void ModalWatcher::expectReport() {
    expect("frmProgRept", [this](QWidget& window) { readReport(window); });
}

void ModalWatcher::readReport(QWidget& report) {
    const auto* text = report.findChild<QPlainTextEdit*>("txtReport");
    seenTexts_.push_back(text->toPlainText().toStdString());
    report.close();
}

bool ModalWatcher::done() const {
    return expected_.empty() && QApplication::activeModalWidget() == nullptr;
}

void ModalWatcher::look() {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr) {
        current_ = nullptr;
        return;
    }
    std::erase_if(open_, [](const QPointer<QWidget>& window) { return window.isNull(); });
    const bool known = std::find(open_.begin(), open_.end(), modal) != open_.end();
    if (known) {
        ticksOpen_ = modal == current_ ? ticksOpen_ + 1 : 0;
        current_ = modal;
        if (ticksOpen_ > openTimeout) {
            seenFaults_.push_back("left open: " + modal->objectName().toStdString());
            modal->close();
        }
        return;
    }
    open_.emplace_back(modal);
    current_ = modal;
    ticksOpen_ = 0;
    if (expected_.empty() || expected_.front().name != modal->objectName()) {
        const auto* box = qobject_cast<QMessageBox*>(modal);
        seenFaults_.push_back("unexpected: " + modal->objectName().toStdString() +
                              (box == nullptr ? std::string() : box->text().toStdString()));
        modal->close();
        return;
    }
    const Action action = std::move(expected_.front().action);
    expected_.pop_front();
    // Queued, because an action may open further windows, and the timer has to see them.
    QMetaObject::invokeMethod(
        modal,
        [this, action, modal] {
            try {
                action(*modal);
            } catch (const std::exception& failure) {
                seenFaults_.emplace_back(failure.what());
                modal->close();
            }
        },
        Qt::QueuedConnection);
}

} // namespace turnpost::automation
