#include "net/SocketCalls.h"
#include "net/SystemSocket.h"

#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace turnpost {

namespace {

// Each error with the number of the corresponding Winsock error.
const std::pair<int, int> numbers[] = {
    {EACCES, 10013},       {EPERM, 10013},        {EINVAL, 10022},        {EMFILE, 10024},
    {EAFNOSUPPORT, 10047}, {EADDRINUSE, 10048},   {EADDRNOTAVAIL, 10049}, {ENETDOWN, 10050},
    {ENETUNREACH, 10051},  {ECONNABORTED, 10053}, {ECONNRESET, 10054},    {ENOBUFS, 10055},
    {ENOMEM, 10055},       {ENFILE, 10055},       {ETIMEDOUT, 10060},     {ECONNREFUSED, 10061},
    {EHOSTUNREACH, 10065}};

} // namespace

int lastSocketError() {
    return errno;
}

bool isInProgress(int error) {
    return error == EAGAIN || error == EINPROGRESS;
}

void makeNonBlocking(SocketHandle handle) {
    fcntl(handle, F_SETFL, O_NONBLOCK);
    fcntl(handle, F_SETFD, FD_CLOEXEC);
}

void closeSocket(SocketHandle handle) {
    close(handle);
}

int pollSocket(pollfd& polled, int timeout) {
    return poll(&polled, 1, timeout);
}

int winsockNumber(int error) {
    for (const auto& [known, number] : numbers) {
        if (known == error) {
            return number;
        }
    }
    return 10050;
}

std::string socketErrorText(int error) {
    return std::generic_category().message(error);
}

} // namespace turnpost
