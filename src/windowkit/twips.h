#pragma once

// Windows are laid out in twips, 15 to a pixel, as they were drawn.

#include <QRect>
#include <QSize>

namespace twips {

constexpr int px(int twips)
{
    return (twips + 7) / 15;
}

constexpr QRect rect(int left, int top, int width, int height)
{
    return QRect(px(left), px(top), px(width), px(height));
}

constexpr QSize size(int width, int height)
{
    return QSize(px(width), px(height));
}

} // namespace twips
