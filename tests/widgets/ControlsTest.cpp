#include "widgets/Controls.h"

#include <QApplication>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>

namespace turnpost {

TEST(WrappingCheckBox, IsTickedByAClickAnywhereInIt) {
    CaptionCheckBox box("Load as Default?");
    box.resize(70, 57);
    QTest::mouseClick(&box, Qt::LeftButton, {}, {68, 55});
    EXPECT_TRUE(box.isChecked());
}

TEST(DriveList, ShowsANameThatReachesItsArrowInATooltip) {
    ElidingComboBox list(nullptr);
    QString name;
    while (list.fontMetrics().horizontalAdvance(name) < 90) {
        name += 'x';
    }
    list.resize(100, 20);
    list.addItem(name);
    QHelpEvent asks(QEvent::ToolTip, {5, 5}, list.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&list, &asks);
    EXPECT_TRUE(QToolTip::text().contains(name));
}

} // namespace turnpost
