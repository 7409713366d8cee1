#include "automation/Waiting.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace turnpost::automation {

bool waitUntil(const std::function<bool()>& condition, int timeout) {
    const QDeadlineTimer deadline(timeout);
    // Wakes the loop, so that conditions outside of it (files, processes) are noticed too.
    QTimer tick;
    tick.start(5);
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

void runPendingEvents() {
    for (int round = 0; round < 20; ++round) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

} // namespace turnpost::automation
