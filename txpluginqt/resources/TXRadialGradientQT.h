#pragma once

#include <txgraphics/TXRadialGradient.h>

namespace TZObjects
{

/// A gradient about a centre, with its focal point there over a `QRadialGradient`, which it owns. Copies share it:
/// whichever goes first frees it for all.
class TXRadialGradientQT final : public TXRadialGradient
{
public:
    TXRadialGradientQT(double cx, double cy, double radius);
    TXRadialGradientQT(const TXRadialGradientQT&) = default;
    TXRadialGradientQT& operator=(const TXRadialGradientQT&) = default;
    ~TXRadialGradientQT() override;

    bool Delete() override;
    void SetColorAt(double position, const TXColor& color) override;
};

} // namespace TZObjects
