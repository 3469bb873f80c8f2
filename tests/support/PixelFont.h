#pragma once

#include <QFont>
#include <QString>

/// A font of a size in pixels, as labels have.
inline QFont PixelFont(int pixels, const QString& family = "DejaVu Sans")
{
    QFont font(family);
    font.setPixelSize(pixels);
    return font;
}
