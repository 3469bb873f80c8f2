#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QBrush>
#include <QFont>
#include <QImage>
#include <QPen>

#include <txgraphics/txgraphics.h>

// The resources of the model. They have those operations of the host's interface that a walk uses, under the same
// names, so that one call in a walk's table serves both sides. They are made and ready from the beginning.

/// The model of a pen.
class ModelPen
{
public:
    ModelPen();

    bool Create(TZObjects::TXPen::PenStyle style, double width, const TZObjects::TXColor& color,
                TZObjects::TXPen::PenCapStyle cap, TZObjects::TXPen::PenJoinStyle join);
    void SetPenStyle(TZObjects::TXPen::PenStyle style);
    void SetPenCapStyle(TZObjects::TXPen::PenCapStyle cap);
    void SetPenJoinStyle(TZObjects::TXPen::PenJoinStyle join);
    void SetWidth(double width);
    void SetColor(const TZObjects::TXColor& color);
    void SetSteps(const std::vector<double>& steps);
    TZObjects::TXColor GetColor() const;

    QPen qpen;
};

/// Learns when an image's pixels are about to go, when there are other ones, and when the image ends.
class ModelFollower
{
public:
    virtual ~ModelFollower() = default;
    virtual void PixelsGo() = 0;
    virtual void PixelsCame() = 0;
    virtual void ImageEnds() = 0;
};

/// The model of an image.
class ModelImage
{
public:
    ModelImage() = default;
    ~ModelImage();
    ModelImage(const ModelImage&) = delete;
    ModelImage& operator=(const ModelImage&) = delete;

    bool CreateCompatibleImage(std::nullptr_t, int width, int height);
    /// The same, with something to do before the followers have the new pixels.
    void CreateCompatibleImage(int width, int height, const std::function<void()>& first);
    bool CreateImage(int width, int height, TZObjects::TXImage::Format format);
    bool Delete();
    void Fill(const TZObjects::TXRect& rect, const TZObjects::TXColor& color);
    void Fill(const TZObjects::TXColor& color);
    void Fill(unsigned int value);
    void SetPixel(int x, int y, const TZObjects::TXColor& color);
    TZObjects::TXColor GetPixel(int x, int y) const;
    void SetBits(const void* data, unsigned int size);
    void* GetBits();
    int GetWidth() const { return pixels ? pixels->width() : 0; }
    int GetHeight() const { return pixels ? pixels->height() : 0; }

    /// What drawing the image draws, as it is now: pixels that index no colour are transparent, and without any colours
    /// there is nothing to draw.
    QImage Drawable() const;

    /// Null while the image is absent.
    std::unique_ptr<QImage> pixels;
    std::vector<ModelFollower*> followers;
    /// Whether a host may have written pixels itself.
    bool isRaw = false;

private:
    /// @param first what to do before the followers have the new pixels.
    void Replace(std::unique_ptr<QImage> replacement, const std::function<void()>& first = {});
};

/// The model of a brush.
class ModelBrush
{
public:
    ModelBrush();

    bool Create(const TZObjects::TXColor& color, TZObjects::TXBrush::BrushStyle style);
    void SetColor(const TZObjects::TXColor& color);
    void SetTextureImage(const std::shared_ptr<ModelImage>& image);
    std::shared_ptr<ModelImage> textureImage() const { return texture; }

    QBrush qbrush;

private:
    std::shared_ptr<ModelImage> texture;
};

/// The model of a font.
class ModelFont
{
public:
    ModelFont() { Create(); }

    bool Create();
    void Delete() {}
    void SetFontWidth(int newWidth);
    void SetFontHeight(int height);
    void SetFontAngle(int newAngle) { angle = newAngle; }
    void SetFontBold(bool bold) { qfont.setWeight(bold ? 75 : 50); }
    void SetFontItalicMode(TZObjects::TXFont::TXItalicMode mode);
    void SetFontUnderline(bool underline) { qfont.setUnderline(underline); }
    void SetFontStrikeOut(bool strikeOut) { qfont.setStrikeOut(strikeOut); }
    void SetFontHalo(bool newHalo) { halo = newHalo; }
    void SetFontHaloWidth(int newWidth) { haloWidth = newWidth < 1 ? 1 : newWidth; }
    void SetFontHaloColor(const TZObjects::TXColor& color) { haloColor = color; }
    void SetFontName(const TZObjects::TXString& newName);
    void SetWordSpacing(double spacing) { qfont.setLetterSpacing(QFont::AbsoluteSpacing, spacing); }

    /// All that a font marker through Qt sets.
    void SetSymbol(double symbolWidth, double height, const TZObjects::TXString& fontName);

    // Measuring, by Qt always.
    bool GetTextExtent(const TZObjects::TXString& text, double& extentWidth, double& height, bool useQt) const;
    bool GetTextExtent(const TZObjects::TXString& text, int& extentWidth, int& height, bool useQt) const;
    bool GetMultiTextExtent(const TZObjects::TXString& text, double& extentWidth, double& height, bool useQt) const;
    bool GetMultiTextExtent(const TZObjects::TXString& text, int& extentWidth, int& height, bool useQt) const;
    void GetFontMetricsInfo(double& height, double& ascent, double& descent, bool useQt) const;
    void GetFontMetricsInfo(int& height, int& ascent, int& descent, bool useQt) const;
    double GetMaxCharWidthOfText(const TZObjects::TXString& text, bool useQt) const;

    int GetFontWidth() const { return width; }
    TZObjects::TXString GetFontName() const;
    bool IsBold() const { return qfont.weight() > 57; }
    bool IsItalic() const { return qfont.style() != QFont::StyleNormal || italicMode == 2; }

    QFont qfont;
    TZObjects::TXFont::TXItalicMode italicMode = TZObjects::TXFont::ItalicNone;
    int width = 0;
    int angle = 0;
    bool halo = false;
    int haloWidth = 1;
    TZObjects::TXColor haloColor = TZObjects::TXColor::BLACK_;
    /// The resolution of the device that the font comes from, in dots per inch; 0 for none.
    int dotsPerInch = 0;

private:
    TZObjects::TXString name;
};

/// The model of a gradient.
class ModelGradient
{
public:
    explicit ModelGradient(const QGradient& gradient) : qgradient(gradient) {}

    void SetColorAt(double position, const TZObjects::TXColor& color);

    QGradient qgradient;
};
