#pragma once

#include <txgraphics/TXGraphicsEngine.h>

namespace TZObjects
{

/// The factory of everything that is backed by Qt. Its first instance makes sure that the process has an application
/// object.
class TXGraphicsEngineQT final : public TXGraphicsEngine
{
public:
    TXGraphicsEngineQT();
    ~TXGraphicsEngineQT() override;

    TXBrush* NewBrush() const override;
    TXPen* NewPen() const override;
    TXFont* NewFont() const override;
    TXRgn* NewRgn() const override;
    TXGraphics* NewGraphics(TXImage* image) const override;
    TXGraphics* NewGraphics() const override;
    TXImage* NewImage() const override;
    TXLinearGradient* NewLinearGradient(double x1, double y1, double x2, double y2) override;
    TXRadialGradient* NewRadialGradient(double cx, double cy, double radius) override;
    void EnableAntialiasing(bool on) override;
};

} // namespace TZObjects
