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

/// Stands in for the person in front of modal windows: each window that opens gets the next action
/// in line. A window that nobody expects, or that stays open too long after its action, is closed
/// and counted as a fault, so that no test hangs on an open dialog.
class ModalWatcher final : public QObject {
  public:
    using Action = std::function<void(QWidget&)>;

    ModalWatcher();

    /// The next window must have this object name ("" for a message box).
    void expect(const QString& name, Action action);

    /// The next window must be a message box; it is closed with its OK button and its text kept.
    void expectMessage();

    /// The next window must be the sending report; it is closed with its close box and its text,
    /// line ends LF, kept.
    void expectReport();

    /// Keeps the text of an open message box and presses its OK button, as expectMessage does.
    void readMessage(QWidget& window);

    /// Keeps the text of an open report and closes it, as expectReport does.
    void readReport(QWidget& report);

    /// Leaves modal windows to the person from now on.
    void stop() { timer_.stop(); }

    /// True when every expected window has come and gone.
    bool done() const;

    const std::vector<std::string>& texts() const { return seenTexts_; }

    /// Gives the texts and keeps none.
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
