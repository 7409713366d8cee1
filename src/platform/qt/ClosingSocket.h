#pragma once

#include <QBasicTimer>
#include <QObject>

class QTcpSocket;

namespace turnpost {

/// Sees a connection off in the background: sends what is still queued, ends the sending side, and
/// reads until the server has closed too. Closing at once instead would answer the server's late
/// reply to QUIT with a reset, which may make it drop the mail it has just accepted. Deletes itself
/// and the socket when done, or when no byte has moved for a minute.
class ClosingSocket final : public QObject {
  public:
    /// Takes over a connected socket.
    ClosingSocket(QTcpSocket* closedSocket, QObject* parent);
    ClosingSocket(const ClosingSocket&) = delete;
    ClosingSocket& operator=(const ClosingSocket&) = delete;

    /// At the program's end: waits a moment for the server, then closes all the same.
    ~ClosingSocket() override;

  protected:
    void timerEvent(QTimerEvent* event) override;

  private:
    void endSendingWhenSent();
    void startWaiting();

    QTcpSocket* socket;
    QBasicTimer timer;
};

} // namespace turnpost
