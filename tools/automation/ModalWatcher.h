#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace turnpost::automation {

/// Plays the host in front of modal windows: each window that opens gets the next action of the
/// list. A window that is not expected, or stays open too long after its action, is closed and
/// counted as a fault, so that no test hangs on an open dialog.
class ModalWatcher final : public QObject {
  public:
    using Action = std::function<void(QWidget&)>;

    ModalWatcher();

    /// The next window must have this object name ("" for a message box).
    void expect(const QString& name, Action action);

    /// The next window must be a message box. Its text is kept, and its OK button closes it.
    void expectMessage();

    /// The next window must be the sending report. Its text is kept with LF line ends, and its
    /// close box closes it.
    void expectReport();

    /// Keeps the text of an open message box and presses its OK button, as expectMessage does.
    void readMessage(QWidget& window);

    /// Keeps the text of an open report and closes it, as expectReport does.
    void readReport(QWidget& report);

    /// From now on a real person answers modal windows.
    void stop() { timer_.stop(); }

    /// True when every expected window has been opened and closed.
    bool done() const;

    const std::vector<std::string>& texts() const { return seenTexts_; }

    /// Returns the kept texts and forgets them.
    std::vector<std::string> takeTexts() { return std::exchange(seenTexts_, {}); }

    const std::vector<std::string>& faults() const { return seenFaults_; }

  private:
    struct Expected {
        QString name;
        Action action;
    };

    void look();

    std::deque<Expected> expected_;
    QTimer timer_;
    QPointer<QWidget> current_;
    int ticksOpen_ = 0;
    std::vector<QPointer<QWidget>> open_;
    std::vector<std::string> seenTexts_;
    std::vector<std::string> seenFaults_;
};

} // namespace turnpost::automation
