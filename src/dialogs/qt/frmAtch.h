#pragma once

#include "app/Application.h"
#include "platform/qt/Form.h"

class QCheckBox;

namespace turnpost {

/// The attachments dialog. Only OK stores anything.
class frmAtch final : public Form {
  public:
    frmAtch(QWidget* parent, Application& usedApplication);

  private:
    QCheckBox* addCheckBox(const char* name, const QString& caption, const QRect& place);
    void addRow(size_t k);
    void showFile(size_t k, const std::string& path);
    void butAddAtch_Click(size_t k);
    void butOK_Click();

    Application& application;
    QCheckBox* chkXY;
    QCheckBox* chkMx;
    std::array<QLineEdit*, 3> txtFile{};
};

} // namespace turnpost
