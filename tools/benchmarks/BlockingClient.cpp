#include "Sending.h"
#include "compose/MUUEncode.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace turnpost::bench {

namespace {

void expectReply(int connection) {
    char reply[512];
    const ssize_t length = recv(connection, reply, sizeof reply, 0);
    if (length <= 0 || (reply[0] != '2' && reply[0] != '3')) {
        throw std::runtime_error("the server refused");
    }
}

void say(int connection, std::string_view text) {
    const ssize_t taken = send(connection, text.data(), text.size(), MSG_NOSIGNAL);
    if (taken != static_cast<ssize_t>(text.size())) {
        throw std::runtime_error("the connection broke");
    }
}

} // namespace

void sendBlocking(const GameDetails& game, std::uint16_t port) {
    const sockaddr_in server{AF_INET, htons(port), {htonl(INADDR_LOOPBACK)}, {}};
    for (const PlayerSlot& player : game.rows) {
        const std::string block = UUEncode(game.GamePath + player.GameFile);
        const int connection = socket(AF_INET, SOCK_STREAM, 0);
        const int atOnce = 1;
        setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, &atOnce, sizeof atOnce);
        if (connect(connection, reinterpret_cast<const sockaddr*>(&server), sizeof server) != 0) {
            throw std::runtime_error("no connection");
        }
        expectReply(connection);
        for (const std::string& command :
             {std::string("HELO host\r\n"), std::string("MAIL FROM:host@example.org\r\n"),
              "RCPT TO:" + player.PlayerEmail + "\r\n", std::string("DATA\r\n")}) {
            say(connection, command);
            expectReply(connection);
        }
        say(connection, "From:Game Host <host@example.org>\r\nTo:" + player.PlayerName + " <" +
                            player.PlayerEmail +
                            ">\r\nSubject:Turn 2405 of Full Game\r\n\r\n"
                            "Hello,\r\n\r\nhere is your turn.\r\n\r\n\r\n");
        say(connection, block);
        say(connection, "\r\n\r\n.\r\n");
        expectReply(connection);
        say(connection, "QUIT\r\n");
        close(connection);
    }
}

} // namespace turnpost::bench
