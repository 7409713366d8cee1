#pragma once

#include "compose/SendReport.h"

namespace turnpost {

/// Where a send shows itself.
class SendDisplay {
  public:
    virtual ~SendDisplay() = default;

    /// Sets the progress bar to this part of its track, from 0 to 1.
    virtual void setProgress(double fraction) = 0;

    /// Shows at each row of the roster what is known of it after a send has broken off
    /// (linesAfterBreak). Sixteen empty lines take that away again.
    virtual void showBreak(const SendReport& lines) = 0;

    /// Opens the sending report, modal, and returns when the host has closed it.
    virtual void openReport() = 0;
};

} // namespace turnpost
