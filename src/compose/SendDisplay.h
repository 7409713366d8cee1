#pragma once

#include "compose/SendReport.h"

namespace turnpost {

/// Shows the progress of a send and its report.
class SendDisplay {
  public:
    virtual ~SendDisplay() = default;

    /// Fills this part of the progress bar, from 0 to 1.
    virtual void setProgress(double fraction) = 0;

    /// Shows at each row of the roster what is known about it after a send has broken off (see
    /// linesAfterBreak). Empty lines remove what is shown.
    virtual void showBreak(const SendReport& lines) = 0;

    /// Opens the sending report as a modal window and returns when the host has closed it.
    virtual void openReport() = 0;
};

} // namespace turnpost
