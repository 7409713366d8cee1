#include "automation/PeerSocket.h"

#include "net/SocketCalls.h"

namespace turnpost::automation {

using Transfer = SystemSocket::Transfer;

PeerSocket::PeerSocket(std::intptr_t connected, Received onReceived, Ended onEnded)
    : system_(connected), received_(std::move(onReceived)), ended_(std::move(onEnded)),
      readable_(connected, QSocketNotifier::Read), writable_(connected, QSocketNotifier::Write) {
    writable_.setEnabled(false);
    connect(&readable_, &QSocketNotifier::activated, this, &PeerSocket::read);
    connect(&writable_, &QSocketNotifier::activated, this, &PeerSocket::write);
}

void PeerSocket::send(const std::string& bytes) {
    outgoing_ += bytes;
    if (system_.isOpen() && !outgoing_.empty()) {
        write();
    }
}

void PeerSocket::release() {
    for (const char byte : std::exchange(kept_, {})) {
        send(std::string(1, byte));
    }
    readable_.setEnabled(system_.isOpen());
}

void PeerSocket::close(bool byReset) {
    if (byReset) {
        // A linger time of zero turns the close into a reset.
        const linger now{1, 0};
        setsockopt(static_cast<SocketHandle>(system_.descriptor()), SOL_SOCKET, SO_LINGER,
                   reinterpret_cast<const char*>(&now), sizeof now);
    }
    end(false);
}

void PeerSocket::read() {
    std::string bytes;
    const auto state = system_.receive(bytes).state;
    if (state == Transfer::Moved) {
        received_(bytes);
    } else if (state == Transfer::Failed) {
        end(true);
    } else if (state == Transfer::Ended && !kept_.empty()) {
        // Sends the late answer. The next read shows whether the client answers it with a reset.
        release();
    } else if (state == Transfer::Ended && !outgoing_.empty()) {
        // The end of stream can still be read when all has been sent.
        readable_.setEnabled(false);
        readsWhenSent_ = true;
    } else if (state == Transfer::Ended) {
        end(false);
    }
}

void PeerSocket::write() {
    const Transfer transfer = system_.send(outgoing_);
    if (transfer.state == Transfer::Failed) {
        end(true);
        return;
    }
    outgoing_.erase(0, transfer.count);
    writable_.setEnabled(!outgoing_.empty());
    if (outgoing_.empty() && std::exchange(readsWhenSent_, false)) {
        readable_.setEnabled(true);
    }
}

void PeerSocket::end(bool byReset) {
    if (!system_.isOpen()) {
        return;
    }
    readable_.setEnabled(false);
    writable_.setEnabled(false);
    system_.close();
    outgoing_.clear();
    kept_.clear();
    ended_(byReset);
}

} // namespace turnpost::automation
