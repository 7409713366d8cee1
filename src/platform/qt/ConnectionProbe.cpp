#include "platform/qt/ConnectionProbe.h"

#ifdef __linux__
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

namespace turnpost {

#ifdef __linux__

void ConnectionProbe::watch(qintptr descriptor) {
    release();
    duplicate = fcntl(static_cast<int>(descriptor), F_DUPFD_CLOEXEC, 0);
}

bool ConnectionProbe::wasReset() const {
    // A server's end of stream leaves the connection half closed; a reset leaves none.
    tcp_info info{};
    socklen_t size = sizeof info;
    return duplicate >= 0 && getsockopt(duplicate, IPPROTO_TCP, TCP_INFO, &info, &size) == 0 &&
           info.tcpi_state == TCP_CLOSE;
}

void ConnectionProbe::release() {
    if (duplicate >= 0) {
        close(duplicate);
        duplicate = -1;
    }
}

#else

void ConnectionProbe::watch(qintptr) {}

bool ConnectionProbe::wasReset() const {
    return false;
}

void ConnectionProbe::release() {}

#endif

} // namespace turnpost
