#include "widgets/FilledBar.h"

#include <QAccessible>
#include <cmath>

namespace turnpost {

FilledBar::FilledBar(QWidget* parent, int track) : QFrame(parent), trackLength_(track) {
    setBackgroundRole(QPalette::Highlight);
    setAutoFillBackground(true);
}

void FilledBar::setFraction(double fraction) {
    resize(static_cast<int>(std::lround(fraction * trackLength_)), height());
    filledPercent_ = static_cast<int>(std::lround(fraction * 100));
    QAccessibleValueChangeEvent changed(this, filledPercent_);
    QAccessible::updateAccessibility(&changed);
}

} // namespace turnpost
