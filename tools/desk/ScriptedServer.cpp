#include "desk/ScriptedServer.h"

#include <arpa/inet.h>
#include <cerrno>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace turnpost::desk {

namespace {

Point pointOf(const std::string& line) {
    const std::string verb = line.substr(0, 4);
    return verb == "HELO"   ? Point::Helo
           : verb == "MAIL" ? Point::Mail
           : verb == "RCPT" ? Point::Recipient
           : verb == "DATA" ? Point::Data
                            : Point::Quit;
}

} // namespace

Answer goodAnswer(Point point) {
    switch (point) {
    case Point::Greeting:
        return {"220 test.example ready\r\n"};
    case Point::Data:
        return {"354 go ahead\r\n"};
    case Point::InMessage:
        return {};
    case Point::Quit:
        return {"221 bye\r\n", Answer::Then::Close};
    default:
        return {"250 ok\r\n"};
    }
}

ScriptedServer::ScriptedServer(Script conversationScript) : script(std::move(conversationScript)) {
    listener = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    if (bind(listener, generic, size) != 0 || listen(listener, 64) != 0 ||
        getsockname(listener, generic, &size) != 0) {
        throw std::runtime_error("no loopback port");
    }
    listeningPort = ntohs(address.sin_port);
    notifier = std::make_unique<QSocketNotifier>(listener, QSocketNotifier::Read);
    connect(notifier.get(), &QSocketNotifier::activated, this, [this] { accept(); });
}

ScriptedServer::~ScriptedServer() {
    notifier.reset();
    close(listener);
    for (size_t i = 0; i < peers.size(); ++i) {
        end(static_cast<int>(i), false);
    }
}

void ScriptedServer::accept() {
    const int descriptor = accept4(listener, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (descriptor < 0) {
        return;
    }
    const int connection = static_cast<int>(peers.size());
    Peer& peer = peers.emplace_back();
    records.emplace_back();
    peer.descriptor = descriptor;
    peer.notifier = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    connect(peer.notifier.get(), &QSocketNotifier::activated, this,
            [this, connection] { read(connection); });
    answer(connection, Point::Greeting, {});
}

void ScriptedServer::read(int connection) {
    Peer& peer = peers[static_cast<size_t>(connection)];
    char bytes[65536];
    const ssize_t count = recv(peer.descriptor, bytes, sizeof bytes, 0);
    if (count > 0) {
        peer.buffer.append(bytes, static_cast<size_t>(count));
        takeInput(connection);
    } else if (count == 0 && !peer.held.empty()) {
        // The late answer; the next look tells whether the client met it with a reset.
        release(connection);
    } else if (count == 0 || errno != EAGAIN) {
        end(connection, count < 0);
    }
}

void ScriptedServer::takeInput(int connection) {
    Peer& peer = peers[static_cast<size_t>(connection)];
    Conversation& record = records[static_cast<size_t>(connection)];
    while (peer.descriptor >= 0 && !peer.buffer.empty()) {
        if (peer.inMessage && !peer.announcedMessage) {
            peer.announcedMessage = true;
            answer(connection, Point::InMessage, {});
            continue;
        }
        const size_t lineEnd = peer.buffer.find("\r\n");
        if (lineEnd == std::string::npos) {
            return;
        }
        const std::string line = peer.buffer.substr(0, lineEnd);
        peer.buffer.erase(0, lineEnd + 2);
        if (!peer.inMessage) {
            record.commands.push_back(line);
            answer(connection, pointOf(line), line);
        } else if (line == ".") {
            peer.inMessage = false;
            answer(connection, Point::Message, {});
        } else {
            record.message += line + "\r\n";
        }
    }
}

void ScriptedServer::answer(int connection, Point point, const std::string& line) {
    Peer& peer = peers[static_cast<size_t>(connection)];
    const Answer answer = script(point, connection, line);
    if (point == Point::Data && answer.bytes.starts_with("354")) {
        peer.inMessage = true;
        peer.announcedMessage = false;
    }
    if (point == Point::Message && answer.bytes.starts_with("250")) {
        records[static_cast<size_t>(connection)].delivered = true;
    }
    if (answer.held) {
        peer.held += answer.bytes;
    } else if (!answer.bytes.empty()) {
        send(peer.descriptor, answer.bytes.data(), answer.bytes.size(), MSG_NOSIGNAL);
    }
    if (answer.then == Answer::Then::Reset) {
        // A linger time of zero turns the close into a reset.
        const linger now{1, 0};
        setsockopt(peer.descriptor, SOL_SOCKET, SO_LINGER, &now, sizeof now);
    }
    if (answer.then != Answer::Then::Continue) {
        end(connection, false);
    }
}

void ScriptedServer::release(int connection) {
    Peer& peer = peers[static_cast<size_t>(connection)];
    send(peer.descriptor, peer.held.data(), peer.held.size(), MSG_NOSIGNAL);
    peer.held.clear();
}

void ScriptedServer::end(int connection, bool reset) {
    Peer& peer = peers[static_cast<size_t>(connection)];
    if (peer.descriptor < 0) {
        return;
    }
    records[static_cast<size_t>(connection)].ended = true;
    records[static_cast<size_t>(connection)].wasReset = reset;
    // The notifier may be the one that is calling.
    peer.notifier->setEnabled(false);
    peer.notifier.release()->deleteLater();
    close(peer.descriptor);
    peer.descriptor = -1;
}

} // namespace turnpost::desk
