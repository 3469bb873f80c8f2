#pragma once

#include <QImage>
#include <QPainter>
#include <QPicture>

/// What a painter that is attached to a surface paints on: an image, or a picture, which is drawn by another route.
class Canvas
{
public:
    enum Kind
    {
        Plain,  ///< An image and a painter as new.
        Turned, ///< An image and a painter whose state has been changed in every respect.
        Picture ///< A picture.
    };
    static constexpr Kind kKinds[] = {Plain, Turned, Picture};

    explicit Canvas(Kind kind);
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    QPainter& Painter() { return painter; }
    /// The image; one that stays as it is for a picture.
    const QImage& Image() const { return image; }
    /// Ends painting, with @p savedStates still on the painter's stack, and plays the picture into the image.
    void Finish(int savedStates);

private:
    QImage image;
    QPicture picture;
    QPainter painter;
};
