#pragma once

#include <memory>

#include <QString>

#include <txgraphics/TXFont.h>
#include <txpluginqt/cairo/CairoHandles.h>

class QFont;

namespace TZObjects
{

/// A font over a `QFont`, which it owns; the `QFont` is absent until `Create`. For measuring as cairo draws it has a
/// cairo context of its own, made with the `QFont` while the engine manager's cairo default is on.
class TXFontQT final : public TXFont
{
public:
    TXFontQT();
    ~TXFontQT() override;
    TXFontQT(const TXFontQT&) = delete;
    TXFontQT& operator=(const TXFontQT&) = delete;

    bool Create() override;
    void Delete() override;

    void SetFontWidth(int width) override;
    int GetFontWidth() const override;
    void SetFontHeight(int height) override;
    int GetFontHeight() const override;
    void SetFontWeight(int weight) override;
    int GetFontWeight() const override;
    void SetFontAngle(int angle) override;
    int GetFontAngle() const override;
    void SetFontBold(bool bold) override;
    bool GetFontBold() const override;
    void SetFontItalic(bool italic) override;
    bool GetFontItalic() const override;
    void SetFontItalicMode(TXItalicMode mode) override;
    void SetFontItalicAngle(int angle) override;
    int GetFontItalicAngle() const override;
    void SetFontUnderline(bool underline) override;
    bool GetFontUnderline() const override;
    void SetFontStrikeOut(bool strikeOut) override;
    bool GetFontStrikeOut() const override;
    void SetFontHalo(bool halo) override;
    bool GetFontHalo() const override;
    void SetFontHaloWidth(int width) override;
    int GetFontHaloWidth() const override;
    void SetFontHaloColor(TXColor color) override;
    TXColor GetFontHaloColor() const override;
    void SetFontShadow(bool shadow) override;
    bool GetFontShadow() const override;
    void SetFontName(TXString name) override;
    TXString GetFontName() const override;
    void SetWordSpacing(double spacing) override;
    double GetWordSpacing() const override;

    bool GetTextExtent(const TXString& text, double& width, double& height, bool useQt) const override;
    bool GetTextExtent(const TXString& text, int& width, int& height, bool useQt) const override;
    bool GetMultiTextExtent(const TXString& text, double& width, double& height, bool useQt) const override;
    bool GetMultiTextExtent(const TXString& text, int& width, int& height, bool useQt) const override;
    void GetFontMetricsInfo(double& height, double& ascent, double& descent, bool useQt) const override;
    void GetFontMetricsInfo(int& height, int& ascent, int& descent, bool useQt) const override;
    double GetMaxCharWidthOfText(const TXString& text, bool useQt) const override;

private:
    struct CachedMetrics;
    /// Height, ascent and descent as Qt has them, computed anew when the font or the fonts of the process have changed.
    const CachedMetrics& Metrics() const;
    QFont* Font() const;
    bool CanMeasureWithQt() const;

    int width = 0;
    int angle = 0;
    int italicAngle = 0;
    bool halo = false;
    int haloWidth = 1;
    bool shadow = false;
    TXString name;
    QString nameInFont; ///< The face that `name` stands for.
    TXColor haloColor;
    txqt::CairoContext measureContext;
    mutable std::shared_ptr<const CachedMetrics> cachedMetrics;
};

} // namespace TZObjects
