#pragma once

#include "app/AppWindows.h"

#include <functional>
#include <string>
#include <vector>

namespace turnpost {

/// Records the order of everything shown. The test chooses what the file picker answers.
class FakeWindows final : public AppWindows {
  public:
    std::vector<std::string> shown;
    std::vector<std::string> boxes;
    SendReport rowsAfterBreak;
    std::function<void()> inFilePicker = [] {};

    void setCaption(const std::string& caption) override { shown.push_back(caption); }
    void showValues() override { shown.emplace_back("values"); }
    void showMainWindow() override { shown.emplace_back("main window"); }
    void openEmailSettings() override { shown.emplace_back("e-mail settings"); }
    void openMessageEditor() override { shown.emplace_back("message editor"); }
    void openFilePicker() override {
        shown.emplace_back("file picker");
        inFilePicker();
    }
    void openAttachments() override { shown.emplace_back("attachments"); }
    void openStoredGames() override { shown.emplace_back("stored games"); }
    void openAbout() override { shown.emplace_back("about"); }
    void setProgress(double) override {}
    void showBreak(const SendReport& lines) override { rowsAfterBreak = lines; }
    void openReport() override { shown.emplace_back("report"); }
    void show(const std::string& text) override {
        shown.emplace_back("box");
        boxes.push_back(text);
    }
};

} // namespace turnpost
