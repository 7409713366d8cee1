#pragma once

#include "compose/MessageBox.h"
#include "compose/SendDisplay.h"

#include <vector>

namespace turnpost {

/// Keeps the texts of message boxes, every position of the bar, and the number of reports.
class FakeDisplay final : public SendDisplay, public MessageBox {
  public:
    std::vector<std::string> boxes;
    std::vector<double> progress;
    SendReport rowsAfterBreak;
    int reports = 0;

    void show(const std::string& text) override { boxes.push_back(text); }
    void setProgress(double fraction) override { progress.push_back(fraction); }
    void showBreak(const SendReport& lines) override { rowsAfterBreak = lines; }
    void openReport() override { ++reports; }
};

} // namespace turnpost
