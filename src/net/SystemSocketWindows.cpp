#include "net/SocketCalls.h"
#include "net/SystemSocket.h"
#include "text/CodePage.h"

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
    wchar_t text[512];
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                  nullptr, static_cast<DWORD>(error), 0, text,
                                  static_cast<DWORD>(std::size(text)), nullptr);
    while (length > 0 && text[length - 1] <= L' ') {
        --length;
    }
    return length == 0 ? "Unknown error" : fromUtf16({text, length});
}

} // namespace turnpost
