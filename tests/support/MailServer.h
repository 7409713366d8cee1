#pragma once

#include "automation/Waiting.h"
#include "files/Files.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <string>
#include <vector>

namespace turnpost::automation {

/// A message as a mail server stored it; line ends LF.
struct StoredMail {
    explicit StoredMail(const QString& message) {
        const qsizetype headEnd = message.indexOf("\n\n");
        for (const QString& line : message.left(headEnd).split('\n')) {
            const QString name = line.section(':', 0, 0);
            const std::string value = line.section(':', 1).trimmed().toStdString();
            if (QStringList{"Delivered-To", "Envelope-to", "X-RcptTo"}.contains(name)) {
                recipient += value;
            } else if (QStringList{"From", "To", "CC", "Subject"}.contains(name)) {
                head += name.toStdString() + ": " + value + "\n";
            }
        }
        const std::string body = message.mid(headEnd + 2).toStdString();
        text = body.substr(0, body.find("begin 664 "));
        blocks = body.substr(text.size());
    }

    /// The recipient that the server noted.
    std::string recipient;
    /// The lines From, To, CC and Subject, with one blank after each colon.
    std::string head;
    /// The text before the first UUencoded block.
    std::string text;
    std::string blocks;
};

/// A real mail server that stores what it accepts in a maildir. TURNPOST_SERVER ("127.0.0.1:port")
/// and TURNPOST_MAILBOX (the maildir) name a running one; without them a server is started on a
/// free port, and killed at the end.
class MailServer {
  public:
    /// Throws when the server does not start.
    MailServer() {
        if (!serverAddress_.empty()) {
            return;
        }
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start("/usr/bin/python3", {TURNPOST_TESTS "/support/mailbox_server.py", mailbox_});
        if (!waitUntil([this] { return process_.canReadLine(); })) {
            throw std::runtime_error("no mail server: " + process_.errorString().toStdString());
        }
        serverAddress_ = "127.0.0.1:" + process_.readLine().trimmed().toStdString();
    }

    /// As the host would enter it.
    const std::string& address() const { return serverAddress_; }

    /// Waits a limited time until this many messages are stored, then takes all messages out of the
    /// maildir.
    std::vector<StoredMail> take(int expected) const {
        const QDir arrived(mailbox_ + "/new");
        const auto names = [&] { return arrived.entryList(QDir::Files); };
        waitUntil([&] { return names().size() >= expected; }, 30000);
        std::vector<StoredMail> mails;
        for (const QString& name : names()) {
            const std::string path = arrived.filePath(name).toStdString();
            mails.emplace_back(QString::fromLatin1(readFile(path)).replace("\r\n", "\n"));
            std::filesystem::remove(path);
        }
        return mails;
    }

  private:
    QTemporaryDir folder_;
    QProcess process_;
    std::string serverAddress_ = qEnvironmentVariable("TURNPOST_SERVER").toStdString();
    QString mailbox_ = qEnvironmentVariable("TURNPOST_MAILBOX", folder_.filePath("mail"));
};

} // namespace turnpost::automation
