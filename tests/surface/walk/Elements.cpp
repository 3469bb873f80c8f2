#include "Elements.h"

#include <algorithm>

namespace
{

bool IsOneOf(const Step& step, const std::vector<Operation>& operations)
{
    return std::any_of(operations.begin(), operations.end(),
                       [&](const Operation& operation) { return std::string(operation.name) == step.name; });
}

bool IsShape(const Step& step)
{
    static const std::vector<Operation> shapes = ShapeOperations();
    return IsOneOf(step, shapes) || std::string(step.name) == "DrawPath";
}

bool IsLabel(const Step& step)
{
    static const std::vector<Operation> labels = LabelOperations();
    return IsOneOf(step, labels);
}

bool IsImage(const Step& step)
{
    static const std::vector<Operation> images = ImageOperations();
    return IsOneOf(step, images);
}

/// The elements that come up, of all that there are.
class Elements
{
public:
    void AddIf(bool comesUp, const char* name)
    {
        all.emplace_back(name);
        if (comesUp)
            present.emplace_back(name);
    }

    std::vector<std::string> all;
    std::vector<std::string> present;
};

void AddOfShape(Elements& elements, bool isShape, const QPainter& painter)
{
    const QBrush brush = isShape ? painter.brush() : QBrush();
    const bool isTexture = brush.style() == Qt::TexturePattern;
    elements.AddIf(brush.style() == Qt::LinearGradientPattern, "a linear gradient");
    elements.AddIf(brush.style() == Qt::RadialGradientPattern, "a radial gradient");
    elements.AddIf(brush.style() == Qt::ConicalGradientPattern, "a conical gradient");
    elements.AddIf(brush.gradient() && brush.gradient()->stops().size() > 3, "a gradient of more than three stops");
    elements.AddIf(isTexture, "a texture");
    elements.AddIf(isTexture && brush.transform().type() > QTransform::TxTranslate, "a turned texture");
    elements.AddIf(isTexture && painter.transform().type() > QTransform::TxTranslate, "a texture of a turned painter");

    const QPen pen = isShape ? painter.pen() : QPen(Qt::NoPen);
    const bool hasMitres = pen.style() != Qt::NoPen && pen.joinStyle() == Qt::MiterJoin;
    elements.AddIf(hasMitres && pen.miterLimit() >= 0.0, "mitres");
    elements.AddIf(hasMitres && pen.miterLimit() < 0.0, "mitres of a negative limit");
    elements.AddIf(pen.style() != Qt::NoPen && pen.joinStyle() == Qt::SvgMiterJoin, "mitres of the other kind");
}

void AddOfLabel(Elements& elements, bool isLabel, const ModelFont& font, bool throughQt, const std::string& description)
{
    constexpr const char* emoji = "\xF0\x9F";
    elements.AddIf(isLabel && font.qfont.strikeOut(), "a font that is struck out");
    elements.AddIf(isLabel && throughQt && description.find(emoji) != std::string::npos, "coloured glyphs");
    elements.AddIf(isLabel && throughQt && font.dotsPerInch == 72, "a font of few dots per inch");
    elements.AddIf(isLabel && throughQt && font.dotsPerInch == 300, "a font of many dots per inch");
}

Elements ElementsIn(const Step* step, const ModelSurface* surface)
{
    Elements elements;
    const QPainter none;
    const ModelFont noFont;
    const bool paints = step && surface->Painter() && surface->Painter()->isActive();
    const bool hasFont = step && surface->Font();
    AddOfShape(elements, paints && IsShape(*step), paints ? *surface->Painter() : none);
    AddOfLabel(elements, hasFont && IsLabel(*step), hasFont ? *surface->Font() : noFont,
               hasFont && !surface->CairoDrawingEnabled(), step ? step->describe() : std::string());
    elements.AddIf(step && IsImage(*step) && surface->DrewRawPixels(), "raw pixels");
    return elements;
}

} // namespace

std::vector<std::string> ElementsOf(const Step& step, World& world)
{
    return ElementsIn(&step, &world.Model(step.surface)).present;
}

std::vector<std::string> AllElements() { return ElementsIn(nullptr, nullptr).all; }
