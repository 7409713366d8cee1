#include "automation/PeerSocket.h"

#include "net/SocketCalls.h"

namespace turnpost::automation {

using Transfer = SystemSocket::Transfer;

PeerSocket::PeerSocket(std::intptr_t connected, Received onReceived, Ended onEnded)
    : system(connected), received(std::move(onReceived)), ended(std::move(onEnded)),
      readable(connected, QSocketNotifier::Read), writable(connected, QSocketNotifier::Write) {
    writable.setEnabled(false);
    connect(&readable, &QSocketNotifier::activated, this, &PeerSocket::read);
    connect(&writable, &QSocketNotifier::activated, this, &PeerSocket::write);
}

void PeerSocket::send(const std::string& bytes) {
    outgoing += bytes;
    if (system.isOpen() && !outgoing.empty()) {
        write();
    }
}

void PeerSocket::release() {
    for (const char byte : std::exchange(kept, {})) {
        send(std::string(1, byte));
    }
    readable.setEnabled(system.isOpen());
}

void PeerSocket::close(bool byReset) {
    if (byReset) {
        // A linger time of zero turns the close into a reset.
        const linger now{1, 0};
        setsockopt(static_cast<SocketHandle>(system.descriptor()), SOL_SOCKET, SO_LINGER,
                   reinterpret_cast<const char*>(&now), sizeof now);
    }
    end(false);
}

void PeerSocket::read() {
    std::string bytes;
    const auto state = system.receive(bytes).state;
    if (state == Transfer::Moved) {
        received(bytes);
    } else if (state == Transfer::Failed) {
        end(true);
    } else if (state == Transfer::Ended && !kept.empty()) {
        // The late answer; the next look tells whether the client met it with a reset.
        release();
    } else if (state == Transfer::Ended && !outgoing.empty()) {
        // The end of stream is still there when all has been sent.
        readable.setEnabled(false);
        readsWhenSent = true;
    } else if (state == Transfer::Ended) {
        end(false);
    }
}

void PeerSocket::write() {
    const Transfer transfer = system.send(outgoing);
    if (transfer.state == Transfer::Failed) {
        end(true);
        return;
    }
    outgoing.erase(0, transfer.count);
    writable.setEnabled(!outgoing.empty());
    if (outgoing.empty() && std::exchange(readsWhenSent, false)) {
        readable.setEnabled(true);
    }
}

void PeerSocket::end(bool byReset) {
    if (!system.isOpen()) {
        return;
    }
    readable.setEnabled(false);
    writable.setEnabled(false);
    system.close();
    outgoing.clear();
    kept.clear();
    ended(byReset);
}

} // namespace turnpost::automation
