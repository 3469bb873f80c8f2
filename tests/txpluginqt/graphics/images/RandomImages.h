#pragma once

#include <vector>

#include <tests/txpluginqt/graphics/RandomCases.h>

#include "ExpectedImage.h"

/// An image with the memory that it may lie in.
struct SourceImage
{
    TZObjects::TXRefPtr<TZObjects::TXImage> image;
    std::vector<unsigned char> memory; ///< Empty when the image has memory of its own.
};

/// An image of any size up to that of a tile and any format, of one pixel or of two device pixels a unit now and then.
SourceImage SomeSource(Random& random);

/// Rectangles in every position to the target and the source, and the rest of the call.
ImageCall SomeCall(Random& random, const QSize& target, const QSize& source);

/// 0, 1 and between, and what is out of range.
double SomeOpacity(Random& random);

/// Changes what concerns images beyond `Random::ChangeState`: smooth transforms, perspective, the view.
void ChangeImageState(Random& random, Twins& twins);
