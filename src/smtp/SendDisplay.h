#pragma once

namespace turnpost {

/// Where a send shows itself.
class SendDisplay {
  public:
    virtual ~SendDisplay() = default;

    /// Sets the progress bar to this part of its track, from 0 to 1.
    virtual void setProgress(double fraction) = 0;

    /// Opens the sending report, modal, and returns when the host has closed it.
    virtual void openReport() = 0;
};

} // namespace turnpost
