#include "widgets/ClearFrames.h"

#include "widgets/FilledBar.h"

#include <gtest/gtest.h>

namespace turnpost {

// Windows gives inactive windows a palette whose selection has the colour of the window.
TEST(ClearFramesStyle, KeepsBarAndSelectionInSightWhileInactive) {
    QPalette palette(Qt::lightGray);
    for (const auto role : {QPalette::Highlight, QPalette::HighlightedText}) {
        palette.setColor(QPalette::Active, role, Qt::blue);
        palette.setColor(QPalette::Inactive, role, Qt::lightGray);
    }
    ClearFrames().polish(palette);
    EXPECT_EQ(palette.color(QPalette::Inactive, QPalette::HighlightedText), QColor(Qt::blue));
    FilledBar bar(nullptr, 10);
    bar.setPalette(palette);
    bar.resize(10, 10);
    EXPECT_FALSE(bar.isActiveWindow());
    EXPECT_EQ(bar.grab().toImage().pixelColor(5, 5), QColor(Qt::blue));
}

} // namespace turnpost
