#include "net/SocketCalls.h"
#include "net/SystemSocket.h"
#include "text/SystemErrors.h"

#include <windows.h>

namespace turnpost {

namespace {

const struct Winsock {
    Winsock() {
        WSADATA data;
        WSAStartup(MAKEWORD(2, 2), &data);
    }
} winsock;

} // namespace

int lastSocketError() {
    return WSAGetLastError();
}

bool isInProgress(int error) {
    return error == WSAEWOULDBLOCK;
}

void makeNonBlocking(SocketHandle handle) {
    u_long on = 1;
    ioctlsocket(handle, static_cast<long>(FIONBIO), &on);
}

void closeSocket(SocketHandle handle) {
    closesocket(handle);
}

int pollSocket(pollfd& polled, int timeout) {
    return WSAPoll(&polled, 1, timeout);
}

int winsockNumber(int error) {
    return error;
}

std::string socketErrorText(int error) {
    const std::string words = systemErrorWords(static_cast<DWORD>(error));
    return words.empty() ? "Unknown error" : words;
}

} // namespace turnpost
