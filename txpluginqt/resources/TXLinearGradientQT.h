#pragma once

#include <txgraphics/TXLinearGradient.h>

namespace TZObjects
{

/// A gradient along a line over a `QLinearGradient`, which it owns. Copies share it: whichever goes first frees it for
/// all.
class TXLinearGradientQT final : public TXLinearGradient
{
public:
    TXLinearGradientQT(double x1, double y1, double x2, double y2);
    TXLinearGradientQT(const TXLinearGradientQT&) = default;
    TXLinearGradientQT& operator=(const TXLinearGradientQT&) = default;
    ~TXLinearGradientQT() override;

    bool Delete() override;
    void SetColorAt(double position, const TXColor& color) override;
};

} // namespace TZObjects
