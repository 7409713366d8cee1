#pragma once

#include "compose/AttachmentChoices.h"
#include "widgets/Form.h"

#include <functional>

class QCheckBox;

namespace turnpost {

/// The attachments dialog. Only OK stores anything.
class frmAtch final : public Form {
  public:
    /// Lets the host pick a file: its full path, empty for none.
    using PickFile = std::function<std::string()>;
    using Store = std::function<void(const AttachmentChoices&)>;

    frmAtch(QWidget* parent, const AttachmentChoices& choices, PickFile pickFile, Store store);

  private:
    QCheckBox* addCheckBox(const char* name, const QString& caption, const QRect& place);
    void addRow(size_t k);
    void showFile(size_t k, const std::string& path);
    void butAddAtch_Click(size_t k);
    void butOK_Click();

    PickFile pickFile_;
    Store store_;
    QCheckBox* chkXY;
    QCheckBox* chkMx;
    std::array<QLineEdit*, 3> txtFile{};
};

} // namespace turnpost
