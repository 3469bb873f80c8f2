#pragma once

#include <QImage>
#include <QPainter>
#include <QPicture>

/// What a painter that is attached to a surface paints on: an image, a picture, which is drawn by another route, or
/// nothing.
class Canvas
{
public:
    enum Kind
    {
        Plain,    ///< An image and a painter as new.
        Turned,   ///< An image and a painter whose state has been changed in every respect.
        Picture,  ///< A picture.
        Inactive, ///< A painter that has not begun.
        Coarse,   ///< An image of few dots per inch.
        Fine      ///< An image of many dots per inch.
    };
    static constexpr Kind kKinds[] = {Plain, Turned, Picture, Inactive, Coarse, Fine};

    explicit Canvas(Kind kind);
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    QPainter& Painter() { return painter; }
    /// The image; one that stays as it is where the painter does not paint on it.
    const QImage& Image() const { return image; }
    /// Ends painting, with @p savedStates still on the painter's stack, and plays the picture into the image.
    void Finish(int savedStates);

private:
    QImage image;
    QPicture picture;
    QPainter painter;
};
