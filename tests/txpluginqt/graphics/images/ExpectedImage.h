#pragma once

#include <QImage>
#include <QPainter>

#include <txgraphics/txgraphics.h>

/// The operations that draw a part of an image.
enum class ImageOperation
{
    Draw,   ///< `DrawImage` from rectangle to rectangle.
    Rotate, ///< `DrawImage4BitmapRotate`.
};
constexpr ImageOperation kImageOperations[] = {ImageOperation::Draw, ImageOperation::Rotate};

/// What such an operation is called with, beside the image.
struct ImageCall
{
    TZObjects::TXRect dst;
    TZObjects::TXRect src;
    double opacity = 1.0;
    double angle = 0.0; ///< Not used by `Draw`.
};

/// Which way a call goes.
enum class ImageRoute
{
    InPlace,   ///< Drawn straight from the image, where it stays.
    Outside,   ///< Nothing is drawn, and that is no failure.
    Collapsed, ///< Nothing is drawn, and that is a failure.
    Placed,    ///< Cropped, scaled and drawn.
};

/// What a call comes to.
struct ImageOutcome
{
    bool result = false;
    ImageRoute route = ImageRoute::Placed;
    bool whole = false;  ///< Not cropped.
    bool scaled = false; ///< Not drawn in the size of the crop.
};

/// Calls the operation of the surface.
bool CallSurface(TZObjects::TXGraphics& surface, ImageOperation operation, const ImageCall& call,
                 TZObjects::TXImage* image);

/// Paints directly what the operation paints for a target of @p target pixels. The numbers of the call must fit into
/// an `int`.
ImageOutcome PaintDirectly(QPainter& painter, const QSize& target, ImageOperation operation, const ImageCall& call,
                           const QImage& image);
