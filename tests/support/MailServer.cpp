#include "support/MailServer.h"

#include "desk/Waiting.h"
#include "platform/Files.h"

#include <QDir>
#include <QRegularExpression>

namespace turnpost::desk {

namespace {

constexpr int longestDelivery = 30000; // milliseconds

// Everything in the text that the pattern matches.
QStringList findAll(const QString& pattern, const QString& text) {
    const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
    QStringList found;
    for (auto matches = expression.globalMatch(text); matches.hasNext();) {
        found.append(matches.next().captured());
    }
    return found;
}

StoredMail parse(const QString& message) {
    const qsizetype end = message.indexOf("\n\n");
    QString head = message.left(end);
    head.replace(QRegularExpression("^(\\S+): *", QRegularExpression::MultilineOption), "\\1: ");
    StoredMail mail;
    // The names that servers give the recipient of the mail itself.
    mail.recipient =
        findAll("(?<=^Delivered-To: |^Envelope-to: |^X-RcptTo: ).*$", head).join(' ').toStdString();
    mail.head = findAll("^(From|To|CC|Subject): .*$", head).join('\n').toStdString();
    QString text = message.mid(end + 2);
    for (const QString& block : findAll("^begin (?:.*\\n)+?end\\n", text)) {
        mail.blocks.push_back(block.toStdString());
        text.remove(block);
    }
    mail.text = text.toStdString();
    mail.text.erase(mail.text.find_last_not_of('\n') + 1);
    return mail;
}

} // namespace

MailServer::MailServer() {
    if (!serverAddress.empty()) {
        return;
    }
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start("/usr/bin/python3", {TURNPOST_TESTS "/support/mailbox_server.py", mailbox});
    if (!waitUntil([this] { return process.canReadLine(); })) {
        throw std::runtime_error("no mail server: " + process.errorString().toStdString());
    }
    serverAddress = "127.0.0.1:" + process.readLine().trimmed().toStdString();
}

MailServer::~MailServer() {
    process.kill();
    process.waitForFinished();
}

std::vector<StoredMail> MailServer::take(int expected) const {
    const QDir arrived(mailbox + "/new");
    const auto names = [&] { return arrived.entryList(QDir::Files); };
    waitUntil([&] { return names().size() >= expected; }, longestDelivery);
    std::vector<StoredMail> mails;
    for (const QString& name : names()) {
        const std::string path = arrived.filePath(name).toStdString();
        mails.push_back(parse(QString::fromLatin1(readFile(path)).replace("\r\n", "\n")));
        std::filesystem::remove(path);
    }
    return mails;
}

} // namespace turnpost::desk
