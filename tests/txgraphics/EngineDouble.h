#pragma once

#include <txgraphics/TXGraphicsEngine.h>

/// An engine that makes nothing.
class EngineDouble : public TZObjects::TXGraphicsEngine
{
public:
    using TXGraphicsEngine::TXGraphicsEngine;

    TZObjects::TXBrush* NewBrush() const override { return nullptr; }
    TZObjects::TXPen* NewPen() const override { return nullptr; }
    TZObjects::TXFont* NewFont() const override { return nullptr; }
    TZObjects::TXRgn* NewRgn() const override { return nullptr; }
    TZObjects::TXGraphics* NewGraphics(TZObjects::TXImage*) const override { return nullptr; }
    TZObjects::TXGraphics* NewGraphics() const override { return nullptr; }
    TZObjects::TXImage* NewImage() const override { return nullptr; }
    TZObjects::TXLinearGradient* NewLinearGradient(double, double, double, double) override { return nullptr; }
    TZObjects::TXRadialGradient* NewRadialGradient(double, double, double) override { return nullptr; }
    void EnableAntialiasing(bool) override {}
};
