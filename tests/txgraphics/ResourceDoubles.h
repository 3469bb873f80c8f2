#pragma once

#include <string>
#include <vector>

#include <txgraphics/txgraphics.h>

/// Resources that do nothing, so that a test sees what their base classes do.

/// An image without pixels that says when it is gone.
class ImageDouble : public TZObjects::TXImage
{
public:
    explicit ImageDouble(int* deaths = nullptr) : deaths(deaths) {}
    ~ImageDouble() override
    {
        if (deaths)
            ++*deaths;
    }
    void SetInternalObject(void* object) { internalObject = object; }

    bool CreateCompatibleImage(const char*) override { return false; }
    bool CreateCompatibleImage(TZObjects::TXGraphics*, const int&, const int&) override { return false; }
    void* GetBits() override { return nullptr; }
    void SetBits(const void*, unsigned int) override {}
    int GetWidth() override { return 0; }
    int GetHeight() override { return 0; }
    bool Delete() override { return true; }
    bool CreateImage(const int&, const int&, Format) override { return false; }
    bool CreateImage(unsigned char*, const int&, const int&, Format) override { return false; }
    bool CreateImage(unsigned char*, const int&, const int&) override { return false; }
    bool Load(unsigned char*, const int&, const char*) override { return false; }
    void Save(const TZObjects::TXString&) const override {}
    void Save(const char*) const override {}
    void Fill(const TZObjects::TXRect&, const TZObjects::TXColor&) override {}
    void Fill(const TZObjects::TXColor&) override {}
    void Fill(unsigned int) override {}
    TZObjects::TXColor GetPixel(int, int) override { return {}; }
    void SetPixel(int, int, const TZObjects::TXColor&) override {}
    int GetByteCount() override { return 0; }

private:
    int* deaths;
};

/// A pen that keeps the arguments of `Create`.
class PenDouble : public TZObjects::TXPen
{
public:
    int created = 0;
    bool answer = true;
    PenStyle style = NullPen;
    double width = 0.0;
    TZObjects::TXColor color{1, 2, 3, 4};
    PenCapStyle cap = FlatCap;
    PenJoinStyle join = MiterJoin;

    void SetInternalObject(void* object) { internalObject = object; }

    using TXPen::Create;
    bool Create(PenStyle newStyle, double newWidth, TZObjects::TXColor newColor, PenCapStyle newCap,
                PenJoinStyle newJoin) override
    {
        ++created;
        style = newStyle;
        width = newWidth;
        color = newColor;
        cap = newCap;
        join = newJoin;
        return answer;
    }
    bool Delete() override { return true; }
    PenStyle GetPenStyle() const override { return style; }
    void SetPenStyle(PenStyle) override {}
    PenCapStyle GetPenCapStyle() const override { return cap; }
    void SetPenCapStyle(PenCapStyle) override {}
    PenJoinStyle GetPenJoinStyle() const override { return join; }
    void SetPenJoinStyle(PenJoinStyle) override {}
    double GetWidth() const override { return width; }
    void SetWidth(double) override {}
    TZObjects::TXColor GetColor() const override { return color; }
    void SetColor(const TZObjects::TXColor&) override {}
    std::vector<double> GetSteps() const override { return {}; }
    void SetSteps(std::vector<double>) override {}
};

class BrushDouble : public TZObjects::TXBrush
{
public:
    void SetInternalObject(void* object) { internalObject = object; }

    bool Create(const TZObjects::TXColor&, BrushStyle) override { return true; }
    bool Delete() override { return true; }
    BrushStyle GetStyle() override { return SolidBrush; }
    void SetColor(const TZObjects::TXColor&) override {}
    TZObjects::TXColor GetColor() override { return {}; }
    TZObjects::TXRefPtr<TZObjects::TXImage> textureImage() const override { return nullptr; }
    void SetTextureImage(TZObjects::TXRefPtr<TZObjects::TXImage>) override {}
};

class FontDouble : public TZObjects::TXFont
{
public:
    void SetInternalObject(void* object) { internalObject = object; }

    bool Create() override { return true; }
    void Delete() override {}
    void SetFontWidth(int) override {}
    int GetFontWidth() const override { return 0; }
    void SetFontHeight(int) override {}
    int GetFontHeight() const override { return 0; }
    void SetFontWeight(int) override {}
    int GetFontWeight() const override { return 0; }
    void SetFontAngle(int) override {}
    int GetFontAngle() const override { return 0; }
    void SetFontBold(bool) override {}
    bool GetFontBold() const override { return false; }
    void SetFontItalic(bool) override {}
    bool GetFontItalic() const override { return false; }
    void SetFontItalicMode(TXItalicMode mode) override { italicMode = mode; }
    void SetFontItalicAngle(int) override {}
    int GetFontItalicAngle() const override { return 0; }
    void SetFontUnderline(bool) override {}
    bool GetFontUnderline() const override { return false; }
    void SetFontStrikeOut(bool) override {}
    bool GetFontStrikeOut() const override { return false; }
    void SetFontHalo(bool) override {}
    bool GetFontHalo() const override { return false; }
    void SetFontHaloWidth(int) override {}
    int GetFontHaloWidth() const override { return 1; }
    void SetFontHaloColor(TZObjects::TXColor) override {}
    TZObjects::TXColor GetFontHaloColor() const override { return {}; }
    void SetFontShadow(bool) override {}
    bool GetFontShadow() const override { return false; }
    void SetFontName(TZObjects::TXString) override {}
    TZObjects::TXString GetFontName() const override { return {}; }
    bool GetTextExtent(const TZObjects::TXString&, double&, double&, bool) const override { return false; }
    bool GetTextExtent(const TZObjects::TXString&, int&, int&, bool) const override { return false; }
    bool GetMultiTextExtent(const TZObjects::TXString&, double&, double&, bool) const override { return false; }
    bool GetMultiTextExtent(const TZObjects::TXString&, int&, int&, bool) const override { return false; }
    void SetWordSpacing(double) override {}
    double GetWordSpacing() const override { return 0.0; }
    void GetFontMetricsInfo(double&, double&, double&, bool) const override {}
    void GetFontMetricsInfo(int&, int&, int&, bool) const override {}
    double GetMaxCharWidthOfText(const TZObjects::TXString&, bool) const override { return 0.0; }
};

/// A gradient of either kind that shows what its base classes keep.
template <class Gradient>
class GradientDouble : public Gradient
{
public:
    using Gradient::Gradient;

    int deleted = 0;

    void SetInternalObject(void* object) { this->internalObject = object; }
    bool Delete() override
    {
        ++deleted;
        return true;
    }
    void SetColorAt(double, const TZObjects::TXColor&) override {}
};

class LinearGradientDouble : public GradientDouble<TZObjects::TXLinearGradient>
{
public:
    using GradientDouble::GradientDouble;

    std::vector<double> Numbers() const { return {x1, y1, x2, y2}; }
    std::vector<const void*> Places() const { return {&internalObject, &x1, &y1, &x2, &y2}; }
};

class RadialGradientDouble : public GradientDouble<TZObjects::TXRadialGradient>
{
public:
    using GradientDouble::GradientDouble;

    std::vector<double> Numbers() const { return {cx, cy, radius}; }
    std::vector<const void*> Places() const { return {&internalObject, &cx, &cy, &radius}; }
};

class RgnDouble : public TZObjects::TXRgn
{
public:
    void SetInternalObject(void* object) { internalObject = object; }
};
