#include "support/WindowTest.h"

namespace turnpost::automation {

using RosterNotes = WindowTest;

TEST_F(RosterNotes, ShowServersWordsAsPlainText) {
    window().showNotes({"", "550 <b>full</b> &\r\n gone\r\n"});
    for (const char* control : {"PlayNum(%1)", "IncludePlayer(%1)"}) {
        const auto* noted = findControl<QWidget>(window(), QString(control).arg(1));
        EXPECT_EQ(noted->toolTip(),
                  "<p style='white-space:pre'>550 &lt;b&gt;full&lt;/b&gt; &amp;<br> gone</p>");
        EXPECT_EQ(noted->accessibleDescription(), "550 <b>full</b> &\n gone");
        const auto* other = findControl<QWidget>(window(), QString(control).arg(0));
        EXPECT_EQ(other->toolTip() + other->accessibleDescription(), "");
    }
}

} // namespace turnpost::automation
