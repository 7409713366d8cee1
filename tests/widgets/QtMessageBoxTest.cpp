#include "widgets/QtMessageBox.h"
#include "automation/ModalWatcher.h"

#include <QMessageBox>
#include <gtest/gtest.h>

namespace turnpost::automation {

TEST(MessageBox, ShowsForeignTextPlain) {
    ModalWatcher watcher;
    watcher.expect("", [](QWidget& window) {
        auto& box = dynamic_cast<QMessageBox&>(window);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.text(), "<img src=x>\nsecond");
        box.accept();
    });
    showMessageBox(nullptr, "<img src=x>\r\nsecond");
    EXPECT_TRUE(watcher.done() && watcher.faults().empty());
}

} // namespace turnpost::automation
