#pragma once

#include <QRect>

namespace turnpost {

/// 15 twips (1/1440 inch) are one pixel at 96 dots per inch; Qt scales on dense screens.
inline constexpr int twipsPerPixel = 15;

constexpr int toPixels(int twips) {
    return twips / twipsPerPixel;
}

constexpr QRect twipsRect(int left, int top, int width, int height) {
    return {toPixels(left), toPixels(top), toPixels(width), toPixels(height)};
}

} // namespace turnpost
