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
    connect(&timer, &QTimer::timeout, this, &ModalWatcher::look);
    timer.start(tick);
}

void ModalWatcher::expect(const QString& name, Action action) {
    expected.push_back({name, std::move(action)});
}

void ModalWatcher::expectMessage() {
    expect("", [this](QWidget& window) { readMessage(window); });
}

void ModalWatcher::readMessage(QWidget& window) {
    auto* box = qobject_cast<QMessageBox*>(&window);
    if (box == nullptr) {
        seenFaults.emplace_back("no message box");
        window.close();
        return;
    }
    seenTexts.push_back(box->text().toStdString());
    box->button(QMessageBox::Ok)->click();
}

void ModalWatcher::expectReport() {
    expect("frmProgRept", [this](QWidget& window) { readReport(window); });
}

void ModalWatcher::readReport(QWidget& report) {
    const auto* text = report.findChild<QPlainTextEdit*>("txtReport");
    seenTexts.push_back(text->toPlainText().toStdString());
    report.close();
}

bool ModalWatcher::done() const {
    return expected.empty() && QApplication::activeModalWidget() == nullptr;
}

void ModalWatcher::look() {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr) {
        current = nullptr;
        return;
    }
    std::erase_if(open, [](const QPointer<QWidget>& window) { return window.isNull(); });
    const bool known = std::find(open.begin(), open.end(), modal) != open.end();
    if (known) {
        ticksOpen = modal == current ? ticksOpen + 1 : 0;
        current = modal;
        if (ticksOpen > openTimeout) {
            seenFaults.push_back("left open: " + modal->objectName().toStdString());
            modal->close();
        }
        return;
    }
    open.emplace_back(modal);
    current = modal;
    ticksOpen = 0;
    if (expected.empty() || expected.front().name != modal->objectName()) {
        const auto* box = qobject_cast<QMessageBox*>(modal);
        seenFaults.push_back("unexpected: " + modal->objectName().toStdString() +
                             (box == nullptr ? std::string() : box->text().toStdString()));
        modal->close();
        return;
    }
    const Action action = std::move(expected.front().action);
    expected.pop_front();
    // Queued: an action may open further windows, and the timer has to see those.
    QMetaObject::invokeMethod(
        modal,
        [this, action, modal] {
            try {
                action(*modal);
            } catch (const std::exception& failure) {
                seenFaults.emplace_back(failure.what());
                modal->close();
            }
        },
        Qt::QueuedConnection);
}

} // namespace turnpost::automation
