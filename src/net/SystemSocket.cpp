#include "net/SystemSocket.h"

#include "net/SocketCalls.h"

namespace turnpost {

namespace {

constexpr size_t maxTransfer = 1 << 16;

// EPIPE here means a reset that has been reported already.
int pipeErrorAsReset(int error) {
    return error == brokenPipeError ? resetError : error;
}

SocketHandle native(std::intptr_t handle) {
    return static_cast<SocketHandle>(handle);
}

} // namespace

SystemSocket::SystemSocket(std::intptr_t opened) : handle_(opened) {
    if (isOpen()) {
        makeNonBlocking(native(handle_));
        const int atOnce = 1;
        setsockopt(native(handle_), IPPROTO_TCP, TCP_NODELAY,
                   reinterpret_cast<const char*>(&atOnce), sizeof atOnce);
    }
}

int SystemSocket::connect(const std::string& address, std::uint16_t port) {
    addrinfo hints{};
    hints.ai_flags = AI_NUMERICHOST | AI_NUMERICSERV;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* target = nullptr;
    if (getaddrinfo(address.c_str(), std::to_string(port).c_str(), &hints, &target) != 0) {
        return addressError;
    }
    const auto opened = socket(target->ai_family, SOCK_STREAM, 0);
    int error = lastSocketError();
    *this = SystemSocket(static_cast<std::intptr_t>(opened));
    if (isOpen()) {
        const auto size = static_cast<socklen_t>(target->ai_addrlen);
        error = ::connect(opened, target->ai_addr, size) == 0 ? 0 : lastSocketError();
    }
    freeaddrinfo(target);
    return isInProgress(error) ? 0 : error;
}

int SystemSocket::pendingError() {
    int error = 0;
    socklen_t size = sizeof error;
    getsockopt(native(handle_), SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &size);
    return pipeErrorAsReset(error);
}

SystemSocket::Transfer SystemSocket::send(std::string_view bytes) {
    Transfer transfer{Transfer::Moved};
    while (transfer.count < bytes.size()) {
        const std::string_view next = bytes.substr(transfer.count, maxTransfer);
        const auto taken =
            ::send(native(handle_), next.data(), static_cast<SocketLength>(next.size()), noSignal);
        if (taken < 0) {
            const int error = lastSocketError();
            return isInProgress(error)
                       ? Transfer{Transfer::WouldBlock, transfer.count}
                       : Transfer{Transfer::Failed, transfer.count, pipeErrorAsReset(error)};
        }
        transfer.count += static_cast<size_t>(taken);
    }
    return transfer;
}

SystemSocket::Transfer SystemSocket::receive(std::string& bytes) {
    char arrived[maxTransfer];
    const auto count = recv(native(handle_), arrived, maxTransfer, 0);
    if (count > 0) {
        bytes.append(arrived, static_cast<size_t>(count));
        return {Transfer::Moved, static_cast<size_t>(count)};
    }
    // recv() also returns 0 after a reset that followed the peer's FIN or was reported before.
    // Sending no bytes tells a reset from an orderly end: it fails on a reset connection.
    if (count == 0 && (endedSending_ || ::send(native(handle_), nullptr, 0, noSignal) == 0)) {
        return {Transfer::Ended};
    }
    const int error = lastSocketError();
    return isInProgress(error) ? Transfer{Transfer::WouldBlock}
                               : Transfer{Transfer::Failed, 0, pipeErrorAsReset(error)};
}

void SystemSocket::endSending() {
    constexpr int sendingSide = 1; // SHUT_WR or SD_SEND
    shutdown(native(handle_), sendingSide);
    endedSending_ = true;
}

bool SystemSocket::wait(bool forRoom, int timeout) {
    pollfd polled{};
    polled.fd = native(handle_);
    polled.events = static_cast<short>(forRoom ? POLLIN | POLLOUT : POLLIN);
    return pollSocket(polled, timeout) > 0;
}

void SystemSocket::close() {
    if (isOpen()) {
        closeSocket(native(std::exchange(handle_, -1)));
    }
}

} // namespace turnpost
