#pragma once

#include <txgraphics/Export.h>
#include <txgraphics/TXGradient.h>

namespace TZObjects
{

/// A gradient from a centre outward; beyond the radius the end colour goes on.
class TXGRAPHICS_API TXRadialGradient : public TXGradient
{
public:
    /// Position 0 is the centre (@p cx, @p cy), position 1 the circle of @p radius about it, in surface units.
    TXRadialGradient(double cx, double cy, double radius);
    TXRadialGradient(const TXRadialGradient& other);
    TXRadialGradient& operator=(const TXRadialGradient& other);
    ~TXRadialGradient() override;

protected:
    double cx;     ///< x of the centre.
    double cy;     ///< y of the centre.
    double radius; ///< Distance from the centre at which position 1 lies.
};

} // namespace TZObjects
