#pragma once

#include <txgraphics/Export.h>
#include <txgraphics/TXGradient.h>

namespace TZObjects
{

/// A gradient along a line; beyond its ends the end colours go on.
class TXGRAPHICS_API TXLinearGradient : public TXGradient
{
public:
    /// From (@p x1, @p y1), position 0, to (@p x2, @p y2), position 1, in surface units.
    TXLinearGradient(double x1, double y1, double x2, double y2);
    TXLinearGradient(const TXLinearGradient& other);
    TXLinearGradient& operator=(const TXLinearGradient& other);
    ~TXLinearGradient() override;

protected:
    double x1; ///< x of position 0.
    double y1; ///< y of position 0.
    double x2; ///< x of position 1.
    double y2; ///< y of position 1.
};

} // namespace TZObjects
