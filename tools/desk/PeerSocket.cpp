#include "desk/PeerSocket.h"

#include <cerrno>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace turnpost::desk {

PeerSocket::PeerSocket(int connectedDescriptor, Received onReceived, Ended onEnded)
    : descriptor(connectedDescriptor), received(std::move(onReceived)), ended(std::move(onEnded)),
      readable(connectedDescriptor, QSocketNotifier::Read),
      writable(connectedDescriptor, QSocketNotifier::Write) {
    writable.setEnabled(false);
    const int now = 1;
    setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &now, sizeof now);
    connect(&readable, &QSocketNotifier::activated, this, &PeerSocket::read);
    connect(&writable, &QSocketNotifier::activated, this, &PeerSocket::write);
}

PeerSocket::~PeerSocket() {
    ended = nullptr;
    end(false);
}

void PeerSocket::send(const std::string& bytes) {
    outgoing += bytes;
    if (descriptor >= 0 && !outgoing.empty()) {
        write();
    }
}

void PeerSocket::release() {
    for (const char byte : std::exchange(kept, {})) {
        send(std::string(1, byte));
    }
    readable.setEnabled(descriptor >= 0);
}

void PeerSocket::endSending() {
    shutdown(descriptor, SHUT_WR);
}

void PeerSocket::close(bool byReset) {
    if (byReset) {
        // A linger time of zero turns the close into a reset.
        const linger now{1, 0};
        setsockopt(descriptor, SOL_SOCKET, SO_LINGER, &now, sizeof now);
    }
    end(false);
}

void PeerSocket::read() {
    char bytes[65536];
    const ssize_t count = recv(descriptor, bytes, sizeof bytes, 0);
    if (count > 0) {
        received(std::string(bytes, static_cast<size_t>(count)));
    } else if (count == 0 && !kept.empty()) {
        // The late answer; the next look tells whether the client met it with a reset.
        release();
    } else if (count == 0 && !outgoing.empty()) {
        // The end of stream is still there when all has been sent.
        readable.setEnabled(false);
        readsWhenSent = true;
    } else if (count == 0 || errno != EAGAIN) {
        end(count < 0);
    }
}

void PeerSocket::write() {
    const ssize_t count = ::send(descriptor, outgoing.data(), outgoing.size(), MSG_NOSIGNAL);
    if (count < 0 && errno != EAGAIN) {
        end(true);
        return;
    }
    outgoing.erase(0, count < 0 ? 0 : static_cast<size_t>(count));
    writable.setEnabled(!outgoing.empty());
    if (outgoing.empty() && std::exchange(readsWhenSent, false)) {
        readable.setEnabled(true);
    }
}

void PeerSocket::end(bool byReset) {
    if (descriptor < 0) {
        return;
    }
    readable.setEnabled(false);
    writable.setEnabled(false);
    ::close(descriptor);
    descriptor = -1;
    outgoing.clear();
    kept.clear();
    if (ended) {
        ended(byReset);
    }
}

} // namespace turnpost::desk
