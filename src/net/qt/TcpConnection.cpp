#include "net/qt/TcpConnection.h"

#include "text/qt/QtText.h"

#include <QDeadlineTimer>
#include <QHostInfo>

namespace turnpost {

namespace {

using Transfer = SystemSocket::Transfer;

constexpr std::chrono::minutes stillnessTimeout{1};
// On Windows the event loop takes notifiers on late, and drops them for a moment with each event.
// What breaks the connection meanwhile is not told by all versions.
constexpr std::chrono::milliseconds secondLook{100};
constexpr size_t maxJoined = 1 << 16;
constexpr int farewellAtProgramEnd = 100; // milliseconds

constexpr int connectionReset = 10054;
constexpr int hostNotFound = 11001;

} // namespace

TcpConnection::TcpConnection(const std::string& host, std::uint16_t serverPort,
                             SocketEvents* socketEvents, QObject* parent)
    : QObject(parent), events(socketEvents), port(serverPort) {
    connect(&readable, &QSocketNotifier::activated, this, &TcpConnection::receive);
    connect(&writable, &QSocketNotifier::activated, this, &TcpConnection::onWritable);
    connect(&timer, &QTimer::timeout, this, &TcpConnection::lookAgain);
    QHostAddress address;
    if (address.setAddress(toQt(host))) {
        // The toolkit would ask for the name of the address first, and wait where nobody answers.
        addresses = {address};
        tryNextAddress(0);
        return;
    }
    QHostInfo::lookupHost(toQt(host), this, [this](const QHostInfo& found) {
        addresses = found.addresses();
        if (state != State::Connecting) {
            return;
        }
        if (addresses.isEmpty()) {
            end(0);
            report(hostNotFound, fromQt(found.errorString()));
        } else {
            tryNextAddress(0);
        }
    });
}

TcpConnection::~TcpConnection() {
    const QDeadlineTimer farewell(farewellAtProgramEnd);
    while (state == State::Closing && !farewell.hasExpired()) {
        system.wait(!outgoing.empty(), static_cast<int>(farewell.remainingTime()));
        sendQueued();
        receive();
    }
}

void TcpConnection::tryNextAddress(int error) {
    while (!addresses.isEmpty()) {
        error = system.connect(fromQt(addresses.takeFirst().toString()), port);
        if (error == 0) {
            readable.setSocket(system.descriptor());
            writable.setSocket(system.descriptor());
            writable.setEnabled(true);
            timer.start(secondLook);
            return;
        }
    }
    end(error);
}

void TcpConnection::onWritable() {
    if (state == State::Connecting) {
        finishConnect(system.pendingError());
    } else {
        sendQueued();
    }
}

void TcpConnection::lookAgain() {
    if (state != State::Connecting) {
        if (readable.isEnabled()) {
            receive();
        }
        if (state == State::Closing && silence() > stillnessTimeout) {
            end(0);
        }
        return;
    }
    const bool ready = system.wait(true, 0);
    if (const int error = system.pendingError(); ready || error != 0) {
        finishConnect(error);
    }
}

void TcpConnection::finishConnect(int error) {
    writable.setEnabled(false);
    if (error != 0 && winsockNumber(error) != connectionReset) {
        tryNextAddress(error);
        return;
    }
    // A reset that has followed so soon shows again after what the server has said before it.
    state = State::Connected;
    readable.setEnabled(true);
}

void TcpConnection::send(std::string bytes, Socket::Send when) {
    if (state != State::Connected || failure != 0) {
        return;
    }
    // Each call of the system is a packet of its own; joining what is large would only copy it.
    if (!outgoing.empty() && outgoing.back().size() + bytes.size() <= maxJoined) {
        outgoing.back() += bytes;
    } else {
        outgoing.push_back(std::move(bytes));
    }
    if (when == Socket::Send::Now) {
        // To the system at once: what it has taken is delivered even when Close follows.
        sendQueued();
    }
}

void TcpConnection::sendQueued() {
    while (!outgoing.empty()) {
        const auto transfer = system.send(std::string_view(outgoing.front()).substr(sent));
        sent += transfer.count;
        if (transfer.count > 0 && state == State::Closing) {
            lastHeard = std::chrono::steady_clock::now();
        }
        if (transfer.state == Transfer::WouldBlock) {
            break;
        }
        if (transfer.state == Transfer::Failed) {
            failure = transfer.error;
            dropQueued();
            break;
        }
        outgoing.pop_front();
        sent = 0;
    }
    if (outgoing.empty() && state == State::Closing) {
        system.endSending();
    }
    writable.setEnabled(!outgoing.empty());
}

void TcpConnection::dropQueued() {
    outgoing.clear();
    sent = 0;
}

// Events are queued: one may open a modal window, or close the connection that is still at work.
void TcpConnection::receive() {
    const auto transfer = system.receive(incoming);
    if (transfer.state != Transfer::Moved) {
        if (transfer.state != Transfer::WouldBlock || failure != 0) {
            end(failure != 0 ? failure : transfer.error);
        }
    } else if (state == State::Closing) {
        incoming.clear();
        lastHeard = std::chrono::steady_clock::now();
    } else {
        lastHeard = std::chrono::steady_clock::now();
        // One event for each arrival; the system keeps the rest meanwhile.
        readable.setEnabled(false);
        QMetaObject::invokeMethod(
            this,
            [this] {
                readable.setEnabled(system.isOpen());
                if (events != nullptr) {
                    events->DataArrival();
                }
            },
            Qt::QueuedConnection);
    }
}

void TcpConnection::end(int error) {
    readable.setEnabled(false);
    writable.setEnabled(false);
    timer.stop();
    system.close();
    if (std::exchange(state, State::Ended) == State::Closing) {
        deleteLater();
    }
    if (error != 0) {
        report(winsockNumber(error), socketErrorText(error));
    }
}

void TcpConnection::report(int number, const std::string& description) {
    QMetaObject::invokeMethod(
        this,
        [this, number, description] {
            if (events != nullptr) {
                events->Error(number, description);
            }
        },
        Qt::QueuedConnection);
}

void TcpConnection::leave(Queue queue) {
    events = nullptr;
    if (state != State::Connected) {
        end(0);
        deleteLater();
        return;
    }
    state = State::Closing;
    lastHeard = std::chrono::steady_clock::now();
    if (queue == Queue::Dropped) {
        dropQueued();
    }
    sendQueued();
}

} // namespace turnpost
