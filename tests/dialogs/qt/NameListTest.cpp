#include "dialogs/qt/NameList.h"

#include <QPixmap>
#include <QTest>
#include <gtest/gtest.h>

namespace turnpost {

TEST(NameList, IndentsDeepLinesAndShowsTheSelectedOne) {
    QPixmap icon(16, 16);
    icon.fill(Qt::red);
    for (const auto& [deepest, indented] : {std::pair(2, 24), std::pair(50, 50)}) {
        NameList list(nullptr, "list", "List");
        list.resize(220, 200);
        list.setLines(std::vector<NameList::Line>(100, {"x", icon, deepest, {}, {}}));
        list.show();
        list.selectLine(60);
        const QRect next = list.visualRect(list.model()->index(61, 0));
        EXPECT_TRUE(list.viewport()->rect().contains(next));
        const QImage image = list.viewport()->grab(next).toImage();
        int left = 0;
        while (left < image.width() && image.pixelColor(left, image.height() / 2) != Qt::red) {
            ++left;
        }
        EXPECT_NEAR(left, indented, 5);
    }
}

TEST(NameList, SelectsALineAtTheFirstKey) {
    NameList list(nullptr, "list", "List");
    std::vector<NameList::Line> lines(4, {"x", {}, 0, {}, {}});
    lines[0].unusable = "why";
    list.setLines(lines);
    for (const auto& [key, line] :
         {std::pair(Qt::Key_Up, 1), std::pair(Qt::Key_Down, 1), std::pair(Qt::Key_Home, 1),
          std::pair(Qt::Key_End, 3), std::pair(Qt::Key_PageDown, 3)}) {
        list.clearSelection();
        QTest::keyClick(&list, key);
        EXPECT_EQ(list.selectedLine(), line) << key;
    }
}

} // namespace turnpost
