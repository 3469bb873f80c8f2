#pragma once

#include <QRect>

#include <txpluginqt/raster/FixedOutline.h>

namespace txqt
{

class SolidPixels;
class SpanBatch;

/// How much work the thread's last fill was, for those who compare it with what the outline contains.
struct FillWork
{
    std::size_t edges = 0; ///< That were looked at, once for each band of rows.
    std::size_t cells = 0; ///< That edges went through.
};

/// Covers the pixels of an outline as Qt's rasteriser does, antialiased, reading the outline once for each band of rows
/// that fits into half a million pixels.
/// @param area where pixels may be touched. @param spans is flushed at the end.
/// @throw std::bad_alloc before anything is drawn, when there is no room for a band.
/// @{
void FillOutlineCells(const FixedOutline& outline, const QRect& area, Qt::FillRule rule, SpanBatch& spans);
void FillOutlineCells(const FixedOutline& outline, const QRect& area, Qt::FillRule rule, SolidPixels& spans);
/// @}

/// What the last fill of this thread took.
FillWork LastFillWork();

} // namespace txqt
