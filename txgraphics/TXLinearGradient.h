#pragma once

#include <txgraphics/Export.h>
#include <txgraphics/TXGradient.h>

namespace TZObjects
{

/// A gradient along a line. The end colours continue beyond both ends.
class TXGRAPHICS_API TXLinearGradient : public TXGradient
{
public:
    /// Makes a gradient that runs from black to white until colours are set.
    /// @param x1,y1 position 0, in surface units.
    /// @param x2,y2 position 1.
    TXLinearGradient(double x1, double y1, double x2, double y2);
    /// Shares the backend's object with @p other; see `TXGradient`.
    TXLinearGradient(const TXLinearGradient& other);
    /// Shares the backend's object with @p other; see `TXGradient`.
    TXLinearGradient& operator=(const TXLinearGradient& other);
    ~TXLinearGradient() override;

protected:
    double x1; ///< x of position 0.
    double y1; ///< y of position 0.
    double x2; ///< x of position 1.
    double y2; ///< y of position 1.
};

} // namespace TZObjects
