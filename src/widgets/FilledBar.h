#pragma once

#include <QFrame>

namespace turnpost {

/// A filled rectangle whose length shows a progress. For screen readers it is a progress bar from 0
/// to 100 percent.
class FilledBar final : public QFrame {
  public:
    /// `track` is the length of the full bar, in pixels.
    FilledBar(QWidget* parent, int track);

    /// Sets the length, from 0 to 1 of the track.
    void setFraction(double fraction);

    int percent() const { return filledPercent_; }

  private:
    int trackLength_;
    int filledPercent_ = 0;
};

} // namespace turnpost
