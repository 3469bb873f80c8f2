#pragma once

#include <txbase/TXRefPtr.h>
#include <txgraphics/TXBrush.h>
#include <txgraphics/TXImage.h>

class QBrush;

namespace TZObjects
{

/// A brush over a `QBrush`, which it owns; the `QBrush` is absent until `Create`.
class TXBrushQT final : public TXBrush
{
public:
    TXBrushQT();
    ~TXBrushQT() override;
    TXBrushQT(const TXBrushQT&) = delete;
    TXBrushQT& operator=(const TXBrushQT&) = delete;

    bool Create(const TXColor& color, BrushStyle style) override;
    bool Delete() override;
    BrushStyle GetStyle() override;
    void SetColor(const TXColor& color) override;
    TXColor GetColor() override;
    TXRefPtr<TXImage> textureImage() const override;
    void SetTextureImage(TXRefPtr<TXImage> image) override;

private:
    QBrush* Brush() const;

    TXRefPtr<TXImage> texture;
};

} // namespace TZObjects
