#include "ServerProcess.h"

#include <QCoreApplication>
#include <stdexcept>

namespace turnpost::lasting {

namespace {

constexpr int longestAnswer = 30000; // milliseconds

} // namespace

ServerProcess::ServerProcess() {
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), {"--server"});
    serverAddress = nextLine();
}

ServerProcess::~ServerProcess() {
    process.closeWriteChannel();
    process.waitForFinished(longestAnswer);
}

void ServerProcess::checkSend() {
    process.write("\n");
    const std::string answer = nextLine();
    if (answer != "well") {
        throw std::runtime_error("the server says: " + answer);
    }
}

std::string ServerProcess::nextLine() {
    while (!process.canReadLine()) {
        if (!process.waitForReadyRead(longestAnswer)) {
            throw std::runtime_error("no answer from the server");
        }
    }
    return process.readLine().trimmed().toStdString();
}

} // namespace turnpost::lasting
