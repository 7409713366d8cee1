#include "net/qt/TcpConnection.h"

#include "text/qt/QtText.h"

#include <QDeadlineTimer>
#include <QHostInfo>

namespace turnpost {

namespace {

using Transfer = SystemSocket::Transfer;

constexpr std::chrono::minutes stillnessTimeout{1};
// On Windows the event loop registers notifiers late and drops them briefly at each event; a break
// in such a gap may go unreported.
constexpr std::chrono::milliseconds secondLook{100};
constexpr size_t maxJoined = 1 << 16;
constexpr int farewellAtProgramEnd = 100; // milliseconds

constexpr int connectionReset = 10054;
constexpr int hostNotFound = 11001;

} // namespace

TcpConnection::TcpConnection(const std::string& host, std::uint16_t serverPort,
                             SocketEvents* socketEvents, QObject* parent)
    : QObject(parent), events_(socketEvents), port_(serverPort) {
    connect(&readable_, &QSocketNotifier::activated, this, &TcpConnection::receive);
    connect(&writable_, &QSocketNotifier::activated, this, &TcpConnection::onWritable);
    connect(&timer_, &QTimer::timeout, this, &TcpConnection::lookAgain);
    QHostAddress address;
    if (address.setAddress(toQt(host))) {
        // QHostInfo would first look up a name for the address, and wait if no server answers.
        addresses_ = {address};
        tryNextAddress(0);
        return;
    }
    QHostInfo::lookupHost(toQt(host), this, [this](const QHostInfo& found) {
        addresses_ = found.addresses();
        if (state_ != State::Connecting) {
            return;
        }
        if (addresses_.isEmpty()) {
            end(0);
            report(hostNotFound, fromQt(found.errorString()));
        } else {
            tryNextAddress(0);
        }
    });
}

TcpConnection::~TcpConnection() {
    const QDeadlineTimer farewell(farewellAtProgramEnd);
    while (state_ == State::Closing && !farewell.hasExpired()) {
        system_.wait(!outgoing_.empty(), static_cast<int>(farewell.remainingTime()));
        sendQueued();
        receive();
    }
}

void TcpConnection::tryNextAddress(int error) {
    while (!addresses_.isEmpty()) {
        error = system_.connect(fromQt(addresses_.takeFirst().toString()), port_);
        if (error == 0) {
            readable_.setSocket(system_.descriptor());
            writable_.setSocket(system_.descriptor());
            writable_.setEnabled(true);
            timer_.start(secondLook);
            return;
        }
    }
    end(error);
}

void TcpConnection::onWritable() {
    if (state_ == State::Connecting) {
        finishConnect(system_.pendingError());
    } else {
        sendQueued();
    }
}

void TcpConnection::lookAgain() {
    if (state_ != State::Connecting) {
        if (readable_.isEnabled()) {
            receive();
        }
        if (state_ == State::Closing && silence() > stillnessTimeout) {
            end(0);
        }
        return;
    }
    const bool ready = system_.wait(true, 0);
    if (const int error = system_.pendingError(); ready || error != 0) {
        finishConnect(error);
    }
}

void TcpConnection::finishConnect(int error) {
    writable_.setEnabled(false);
    if (error != 0 && winsockNumber(error) != connectionReset) {
        tryNextAddress(error);
        return;
    }
    // An immediate reset is no failed connect: receive() reports it after the server's data.
    state_ = State::Connected;
    readable_.setEnabled(true);
}

void TcpConnection::send(std::string bytes, Socket::Send when) {
    if (state_ != State::Connected || failure_ != 0) {
        return;
    }
    // Each system call sends a packet of its own, so small pieces are joined; large ones would
    // only be copied.
    if (!outgoing_.empty() && outgoing_.back().size() + bytes.size() <= maxJoined) {
        outgoing_.back() += bytes;
    } else {
        outgoing_.push_back(std::move(bytes));
    }
    if (when == Socket::Send::Now) {
        // The system delivers what it has taken, even when Close follows.
        sendQueued();
    }
}

void TcpConnection::sendQueued() {
    while (!outgoing_.empty()) {
        const auto transfer = system_.send(std::string_view(outgoing_.front()).substr(sent_));
        sent_ += transfer.count;
        if (transfer.count > 0 && state_ == State::Closing) {
            lastHeard_ = std::chrono::steady_clock::now();
        }
        if (transfer.state == Transfer::WouldBlock) {
            break;
        }
        if (transfer.state == Transfer::Failed) {
            failure_ = transfer.error;
            dropQueued();
            break;
        }
        outgoing_.pop_front();
        sent_ = 0;
    }
    if (outgoing_.empty() && state_ == State::Closing) {
        system_.endSending();
    }
    writable_.setEnabled(!outgoing_.empty());
}

void TcpConnection::dropQueued() {
    outgoing_.clear();
    sent_ = 0;
}

// Events are queued, because their handler may open a modal window or close this connection.
void TcpConnection::receive() {
    const auto transfer = system_.receive(incoming_);
    if (transfer.state != Transfer::Moved) {
        if (transfer.state != Transfer::WouldBlock || failure_ != 0) {
            end(failure_ != 0 ? failure_ : transfer.error);
        }
    } else if (state_ == State::Closing) {
        incoming_.clear();
        lastHeard_ = std::chrono::steady_clock::now();
    } else {
        lastHeard_ = std::chrono::steady_clock::now();
        // One event for each arrival; until then the system keeps what arrives.
        readable_.setEnabled(false);
        QMetaObject::invokeMethod(
            this,
            [this] {
                readable_.setEnabled(system_.isOpen());
                if (events_ != nullptr) {
                    events_->DataArrival();
                }
            },
            Qt::QueuedConnection);
    }
}

void TcpConnection::end(int error) {
    readable_.setEnabled(false);
    writable_.setEnabled(false);
    timer_.stop();
    system_.close();
    if (std::exchange(state_, State::Ended) == State::Closing) {
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
            if (events_ != nullptr) {
                events_->Error(number, description);
            }
        },
        Qt::QueuedConnection);
}

void TcpConnection::leave(Queue queue) {
    events_ = nullptr;
    if (state_ != State::Connected) {
        end(0);
        deleteLater();
        return;
    }
    state_ = State::Closing;
    lastHeard_ = std::chrono::steady_clock::now();
    if (queue == Queue::Dropped) {
        dropQueued();
    }
    sendQueued();
}

} // namespace turnpost
