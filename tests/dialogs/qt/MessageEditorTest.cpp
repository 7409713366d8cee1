#include "desk/Host.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace turnpost::desk {

class MessageEditor : public testing::Test {
  protected:
    MessageEditor() {
        host.saveSettings("localhost");
        host.desktop().startUp();
    }

    void edit(ModalWatcher::Action action) {
        host.watcher().expect("frmMessage", std::move(action));
        host.chooseMenu("mnuMsg");
        EXPECT_TRUE(host.watcher().done());
        EXPECT_EQ(host.watcher().faults(), std::vector<std::string>{});
    }

    const MessageTemplate& stored() { return host.desktop().app().values().message; }

    Host host;
};

TEST_F(MessageEditor, TypedTextIsStoredExactlyWithCrLfAndEnterStartsALine) {
    edit([this](QWidget& form) {
        auto* body = findControl<QPlainTextEdit>(form, "txtMessage");
        EXPECT_EQ(body->toPlainText(), "");
        host.type("txtSubject", " Turn <<gn>> & more ", &form);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), body);
        QTest::keyClicks(body, " one");
        QTest::keyClick(body, Qt::Key_Return);
        QTest::keyClick(body, Qt::Key_Return);
        QTest::keyClicks(body, ".two ");
        QTest::keyClick(body, Qt::Key_Escape);
        EXPECT_TRUE(form.isVisible());
        host.click("mnuOK", &form);
    });
    EXPECT_EQ(stored().MessageSubject, " Turn <<gn>> & more ");
    EXPECT_EQ(stored().MessageBody, " one\r\n\r\n.two ");
    edit([this](QWidget& form) {
        EXPECT_EQ(findControl<QPlainTextEdit>(form, "txtMessage")->toPlainText(), " one\n\n.two ");
        host.click("Default", &form);
        form.close();
    });
    EXPECT_EQ(stored().MessageBody, " one\r\n\r\n.two ") << "only OK stores";
}

TEST_F(MessageEditor, AMegabyteWithoutABlankDoesNotHoldTheWindowUpAndIsStoredWhole) {
    const std::string body = "Hello\r\n" + std::string(1 << 20, 'x');
    host.desktop().app().storeMessage({"", body});
    QElapsedTimer timer;
    timer.start();
    edit([this](QWidget& form) { host.click("mnuOK", &form); });
    EXPECT_LT(timer.elapsed(), 20000);
    EXPECT_TRUE(stored().MessageBody == body);
}

} // namespace turnpost::desk
