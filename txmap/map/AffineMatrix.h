#pragma once

#include <algorithm>
#include <initializer_list>

#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>

namespace txmap
{

/// Maps (x, y) to (xx * x + xy * y + x0, yx * x + yy * y + y0).
struct AffineMatrix
{
    double xx = 1.0;
    double xy = 0.0;
    double yx = 0.0;
    double yy = 1.0;
    double x0 = 0.0;
    double y0 = 0.0;

    TZObjects::TXPoint Map(const TZObjects::TXPoint& point) const
    {
        return {xx * point.x + xy * point.y + x0, yx * point.x + yy * point.y + y0};
    }
    /// The box around a mapped box.
    TZObjects::TXRect MapBox(const TZObjects::TXRect& box) const
    {
        TZObjects::TXRect around{1e300, -1e300, 1e300, -1e300};
        for (const double x : {box.left, box.right})
            for (const double y : {box.top, box.bottom})
            {
                const TZObjects::TXPoint corner = Map({x, y});
                around = {std::min(around.left, corner.x), std::max(around.right, corner.x),
                          std::min(around.top, corner.y), std::max(around.bottom, corner.y)};
            }
        return around;
    }
    /// The matrix that undoes this one, which must not flatten the plane.
    AffineMatrix Inverted() const
    {
        const double determinant = xx * yy - xy * yx;
        AffineMatrix inverse{yy / determinant, -xy / determinant, -yx / determinant, xx / determinant, 0.0, 0.0};
        inverse.x0 = -(inverse.xx * x0 + inverse.xy * y0);
        inverse.y0 = -(inverse.yx * x0 + inverse.yy * y0);
        return inverse;
    }
    /// True when horizontal lines stay horizontal.
    bool IsUpright() const { return xy == 0.0 && yx == 0.0; }
};

} // namespace txmap
