#include "Sink.h"

#include <netinet/in.h>
#include <stdexcept>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace turnpost::bench {

namespace {

// Each client waits for an answer before it sends more, so each part needs an answer.
void serve(int connection) {
    static char arrived[1 << 18];
    const auto say = [connection](std::string_view reply) {
        send(connection, reply.data(), reply.size(), MSG_NOSIGNAL);
    };
    std::string text;
    bool message = false;
    say("220 sink\r\n");
    for (ssize_t count = 0; (count = recv(connection, arrived, sizeof arrived, 0)) > 0;) {
        text.append(arrived, static_cast<size_t>(count));
        if (!text.ends_with(message ? "\r\n.\r\n" : "\r\n")) {
            continue;
        }
        message = !message && text.starts_with("DATA");
        say(message ? "354 go on\r\n" : "250 ok\r\n");
        if (text.starts_with("QUIT")) {
            break;
        }
        text.clear();
    }
    close(connection);
}

} // namespace

std::uint16_t startSink() {
    const int listening = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{AF_INET, 0, {htonl(INADDR_LOOPBACK)}, {}};
    socklen_t size = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    if (bind(listening, generic, size) != 0 || listen(listening, 64) != 0 ||
        getsockname(listening, generic, &size) != 0) {
        throw std::runtime_error("no server");
    }
    std::thread([listening] {
        while (true) {
            serve(accept(listening, nullptr, nullptr));
        }
    }).detach();
    return ntohs(address.sin_port);
}

} // namespace turnpost::bench
