#include <txpluginqt/resources/TXFontQT.h>

#include <algorithm>
#include <cmath>

#include <QFont>

#include <txgraphics/TXGraphicsEngineManager.h>
#include <txpluginqt/cairo/CairoFont.h>
#include <txpluginqt/support/Conversions.h>
#include <txpluginqt/support/Failures.h>
#include <txpluginqt/support/Fonts.h>

using namespace txqt;

namespace TZObjects
{
namespace
{

constexpr int kMeasureSurfaceSize = 300;

struct WeightStep
{
    int upTo; // on the interface's scale of 100 to 900
    int qt;   // on Qt's scale of 0 to 99
};

constexpr WeightStep kWeights[] = {{100, 0},  {200, 12}, {300, 25}, {400, 50}, {500, 57},
                                   {600, 63}, {700, 75}, {800, 81}, {900, 87}};
constexpr int kNormalWeight = 400;

int ToQtWeight(int weight)
{
    for (const WeightStep& step : kWeights)
        if (weight <= step.upTo)
            return step.qt;
    return std::end(kWeights)[-1].qt;
}

int FromQtWeight(int qt)
{
    for (const WeightStep& step : kWeights)
        if (qt == step.qt)
            return step.upTo;
    return kNormalWeight;
}

/// The English name where the given one is a known localised name, else the name as given.
TXString EnglishName(const TXString& name)
{
    const TXString& english = TXFont::GetEnglishNameForKnownFont(name);
    return english.isEmpty() ? name : english;
}

CairoContext NewMeasureContext()
{
    const CairoSurface surface(
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kMeasureSurfaceSize, kMeasureSurfaceSize));
    // The context keeps a reference to its surface.
    return CairoContext(cairo_create(surface.get()));
}

} // namespace

TXFontQT::TXFontQT() = default;

TXFontQT::~TXFontQT() { TXFontQT::Delete(); }

QFont* TXFontQT::Font() const { return static_cast<QFont*>(internalObject); }

bool TXFontQT::Create()
{
    if (Font())
        Delete();
    internalObject = NewOrNull<QFont>();
    if (Font())
        width = Font()->pixelSize();
    if (TXGraphicsEngineManager::instance("")->CairoDrawingEnabled())
        measureContext = NewMeasureContext();
    return true;
}

void TXFontQT::Delete()
{
    delete Font();
    internalObject = nullptr;
    measureContext.reset();
}

void TXFontQT::SetFontWidth(int newWidth)
{
    if (newWidth > 0)
        width = newWidth;
}

int TXFontQT::GetFontWidth() const { return width; }

void TXFontQT::SetFontHeight(int height)
{
    if (height <= 0)
        return;
    IfPresent(Font(), [&](QFont& font) { font.setPixelSize(std::min(height, kLargestFontSize)); });
    if (measureContext)
        SetCairoFontSize(measureContext.get(), height);
}

int TXFontQT::GetFontHeight() const { return Font() ? Font()->pixelSize() : 0; }

void TXFontQT::SetFontWeight(int weight)
{
    if (weight > 0)
        IfPresent(Font(), [&](QFont& font) { font.setWeight(ToQtWeight(weight)); });
}

int TXFontQT::GetFontWeight() const { return Font() ? FromQtWeight(Font()->weight()) : 0; }

void TXFontQT::SetFontAngle(int newAngle) { angle = newAngle; }

int TXFontQT::GetFontAngle() const { return angle; }

void TXFontQT::SetFontBold(bool bold)
{
    IfPresent(Font(), [&](QFont& font) { font.setWeight(bold ? QFont::Bold : QFont::Normal); });
}

bool TXFontQT::GetFontBold() const { return Font() && Font()->weight() > QFont::Medium; }

void TXFontQT::SetFontItalic(bool italic)
{
    if (!italic)
        SetFontItalicMode(ItalicNone);
    else if (italicMode == ItalicNone)
        SetFontItalicMode(ItalicFace);
    else
        SetFontItalicMode(italicMode);
}

bool TXFontQT::GetFontItalic() const
{
    return italicMode == ItalicSlant || (Font() && Font()->style() != QFont::StyleNormal);
}

void TXFontQT::SetFontItalicMode(TXItalicMode mode)
{
    IfPresent(Font(),
              [&](QFont& font)
              {
                  font.setStyle(mode == ItalicFace ? QFont::StyleItalic : QFont::StyleNormal);
                  italicMode = mode;
              });
}

void TXFontQT::SetFontItalicAngle(int newAngle) { italicAngle = newAngle; }

int TXFontQT::GetFontItalicAngle() const { return italicAngle; }

void TXFontQT::SetFontUnderline(bool underline)
{
    IfPresent(Font(), [&](QFont& font) { font.setUnderline(underline); });
}

bool TXFontQT::GetFontUnderline() const { return Font() && Font()->underline(); }

void TXFontQT::SetFontStrikeOut(bool strikeOut)
{
    IfPresent(Font(), [&](QFont& font) { font.setStrikeOut(strikeOut); });
}

bool TXFontQT::GetFontStrikeOut() const { return Font() && Font()->strikeOut(); }

void TXFontQT::SetFontHalo(bool newHalo) { halo = newHalo; }

bool TXFontQT::GetFontHalo() const { return halo; }

void TXFontQT::SetFontHaloWidth(int newWidth) { haloWidth = std::max(newWidth, 1); }

int TXFontQT::GetFontHaloWidth() const { return haloWidth; }

void TXFontQT::SetFontHaloColor(TXColor color) { haloColor = color; }

TXColor TXFontQT::GetFontHaloColor() const { return haloColor; }

void TXFontQT::SetFontShadow(bool newShadow) { shadow = newShadow; }

bool TXFontQT::GetFontShadow() const { return shadow; }

void TXFontQT::SetFontName(TXString newName)
{
    if (newName.isEmpty())
        return;
    // Symbols come with their face's name each, which is the last one's for the most part. What measures for cairo also
    // takes over slant and weight.
    const bool isSet = Font() && (Font()->resolve() & QFont::FamilyResolved) != 0 && Font()->family() == nameInFont;
    if (!measureContext && newName == name && isSet)
        return;
    IfPresent(Font(),
              [&](QFont& font)
              {
                  font.setFamily(ToQString(EnglishName(newName)));
                  nameInFont = font.family();
                  const TXString resolved = ToTXString(nameInFont);
                  name = EnglishName(resolved);
                  if (measureContext)
                      SelectCairoFace(measureContext.get(), resolved.toUTF8(), *this);
              });
}

TXString TXFontQT::GetFontName() const
{
    if (!name.isEmpty() || !Font())
        return name;
    return ResultOr(TXString(), [&] { return EnglishName(ToTXString(Font()->family())); });
}

void TXFontQT::SetWordSpacing(double spacing)
{
    if (std::isfinite(spacing))
        IfPresent(Font(), [&](QFont& font) { font.setLetterSpacing(QFont::AbsoluteSpacing, spacing); });
}

double TXFontQT::GetWordSpacing() const { return Font() ? Font()->letterSpacing() : 0.0; }

} // namespace TZObjects
