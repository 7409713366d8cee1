#include "roster/qt/frmMain.h"

#include "support/WindowTest.h"

#include <QApplication>
#include <QCloseEvent>

namespace turnpost::automation {

using MainForm = WindowTest;

TEST_F(MainForm, ClosedAgainWhileItClosesClosesOnce) {
    int played = 0;
    frmMain form(host().desktop().app(), [&played](QWidget* window) {
        // The animation lets events run; the toolkit need not hold this one back.
        if (++played < 3) {
            QCloseEvent again;
            QApplication::sendEvent(window, &again);
        }
    });
    form.show();
    form.close();
    EXPECT_EQ(played, 1);
    EXPECT_FALSE(form.isVisible());
}

} // namespace turnpost::automation
