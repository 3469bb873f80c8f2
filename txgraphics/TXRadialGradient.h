#pragma once

#include <txgraphics/Export.h>
#include <txgraphics/TXGradient.h>

namespace TZObjects
{

/// A gradient from a centre outward. The last colour continues beyond the radius.
class TXGRAPHICS_API TXRadialGradient : public TXGradient
{
public:
    /// Makes a gradient that runs from black to white until colours are set.
    /// @param cx,cy the centre, position 0, in surface units.
    /// @param radius the distance from the centre at which position 1 lies.
    TXRadialGradient(double cx, double cy, double radius);
    /// Shares the backend's object with @p other; see `TXGradient`.
    TXRadialGradient(const TXRadialGradient& other);
    /// Shares the backend's object with @p other; see `TXGradient`.
    TXRadialGradient& operator=(const TXRadialGradient& other);
    ~TXRadialGradient() override;

protected:
    double cx;     ///< x of the centre.
    double cy;     ///< y of the centre.
    double radius; ///< Distance from the centre to position 1.
};

} // namespace TZObjects
