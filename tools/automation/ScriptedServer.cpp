#include "automation/ScriptedServer.h"

#include "net/SocketCalls.h"

#include <stdexcept>

namespace turnpost::automation {

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

ScriptedServer::ScriptedServer(Script script)
    : script_(std::move(script)),
      listener_(static_cast<std::intptr_t>(socket(AF_INET, SOCK_STREAM, 0))) {
    const auto handle = static_cast<SocketHandle>(listener_.descriptor());
    // Set before listen(), so that it applies to the first segments of a connection.
    const auto setOption = [handle](int level, int name, int value) {
        setsockopt(handle, level, name, reinterpret_cast<const char*>(&value), sizeof value);
    };
#ifdef TCP_MAXSEG
    setOption(IPPROTO_TCP, TCP_MAXSEG, 1400);
#endif
    setOption(SOL_SOCKET, SO_RCVBUF, 8192);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    if (bind(handle, generic, size) != 0 || listen(handle, 64) != 0 ||
        getsockname(handle, generic, &size) != 0) {
        throw std::runtime_error("no loopback port");
    }
    listeningPort_ = ntohs(address.sin_port);
    notifier_.setSocket(listener_.descriptor());
    notifier_.setEnabled(true);
    connect(&notifier_, &QSocketNotifier::activated, this, &ScriptedServer::accept);
}

void ScriptedServer::accept() {
    const auto accepted = static_cast<std::intptr_t>(
        ::accept(static_cast<SocketHandle>(listener_.descriptor()), nullptr, nullptr));
    if (accepted < 0) {
        return;
    }
    const int connection = static_cast<int>(peers_.size());
    records_.emplace_back();
    peers_.emplace_back().socket = std::make_unique<PeerSocket>(
        accepted, [this, connection](const std::string& bytes) { takeInput(connection, bytes); },
        [this, connection](bool byReset) { end(connection, byReset); });
    answer(connection, Point::Greeting, {});
}

void ScriptedServer::takeInput(int connection, const std::string& bytes) {
    Peer& peer = peers_[static_cast<size_t>(connection)];
    Conversation& record = records_[static_cast<size_t>(connection)];
    peer.buffer += bytes;
    while (!peer.over && !peer.paused && !peer.buffer.empty()) {
        if (peer.inMessage && !peer.announcedMessage &&
            record.message.size() + peer.buffer.size() >= midMessage_) {
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
    Peer& peer = peers_[static_cast<size_t>(connection)];
    const Answer answer = script_(point, connection, line);
    if (point == Point::Data && answer.bytes.starts_with("354")) {
        peer.inMessage = true;
        peer.announcedMessage = false;
    }
    if (point == Point::Message && answer.bytes.starts_with("250")) {
        records_[static_cast<size_t>(connection)].delivered = true;
    }
    peer.socket->send(answer.bytes);
    peer.socket->keepBack(answer.late);
    if (answer.then == Answer::Then::Pause) {
        peer.paused = true;
        peer.socket->stopReading();
    } else if (answer.then == Answer::Then::Close && peer.inMessage) {
        // Closing while more of the message arrives would cause a reset.
        peer.over = true;
        peer.socket->endSending();
    } else if (answer.then != Answer::Then::Continue) {
        peer.socket->close(answer.then == Answer::Then::Reset);
    }
}

void ScriptedServer::release(int connection) {
    Peer& peer = peers_[static_cast<size_t>(connection)];
    peer.paused = false;
    peer.socket->release();
    takeInput(connection, {});
}

void ScriptedServer::forget() {
    peers_.clear();
    records_.clear();
}

void ScriptedServer::end(int connection, bool byReset) {
    peers_[static_cast<size_t>(connection)].over = true;
    records_[static_cast<size_t>(connection)].ended = true;
    records_[static_cast<size_t>(connection)].wasReset = byReset;
}

} // namespace turnpost::automation
