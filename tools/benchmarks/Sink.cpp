// A mail server that takes everything and keeps nothing. Prints its port; ends with its input.
#include <iostream>
#include <netinet/in.h>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace {

void serve(int connection) {
    const auto say = [connection](const std::string& reply) {
        send(connection, reply.data(), reply.size(), MSG_NOSIGNAL);
    };
    constexpr std::string_view end = "\r\n.\r\n";
    static thread_local char arrived[1 << 18];
    std::string line;
    bool message = false;
    say("220 sink\r\n");
    for (ssize_t count = 0; (count = recv(connection, arrived, sizeof arrived, 0)) > 0;) {
        std::string_view bytes(arrived, static_cast<size_t>(count));
        if (message) {
            line.append(bytes.substr(bytes.size() - std::min(bytes.size(), end.size())));
            line.erase(0, line.size() - std::min(line.size(), end.size()));
            message = line != end;
            if (!message) {
                line.clear();
                say("250 taken\r\n");
            }
            continue;
        }
        for (line += bytes; line.find('\n') != std::string::npos && !message;
             line.erase(0, line.find('\n') + 1)) {
            message = line.starts_with("DATA") || line.starts_with("data");
            say(message                    ? "354 go on\r\n"
                : line.starts_with("QUIT") ? "221 bye\r\n"
                                           : "250 ok\r\n");
        }
    }
    close(connection);
}

} // namespace

int main() {
    const int listening = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{AF_INET, 0, {htonl(INADDR_LOOPBACK)}, {}};
    socklen_t size = sizeof address;
    if (bind(listening, reinterpret_cast<sockaddr*>(&address), size) != 0 ||
        listen(listening, 64) != 0) {
        return 1;
    }
    getsockname(listening, reinterpret_cast<sockaddr*>(&address), &size);
    std::cout << ntohs(address.sin_port) << std::endl;
    std::thread([listening] {
        for (int connection = 0; (connection = accept(listening, nullptr, nullptr)) >= 0;) {
            std::thread(serve, connection).detach();
        }
    }).detach();
    while (std::cin.get() != EOF) {
    }
    _exit(0);
}
