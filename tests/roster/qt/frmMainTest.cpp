#include "roster/qt/frmMain.h"

#include "support/WindowTest.h"

namespace turnpost::automation {

using MainForm = WindowTest;

TEST_F(MainForm, ClosedAgainWhileItClosesClosesOnce) {
    int played = 0;
    frmMain form(host().desktop().app(), [&played](QWidget* window) {
        // A window system asks again while the animation lets events run.
        if (++played < 3) {
            window->close();
        }
    });
    form.show();
    form.close();
    EXPECT_EQ(played, 1);
    EXPECT_FALSE(form.isVisible());
}

} // namespace turnpost::automation
