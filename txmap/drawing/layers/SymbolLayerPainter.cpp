#include <txmap/drawing/layers/SymbolLayerPainter.h>

#include <cmath>
#include <optional>

#include <txgraphics/TXFont.h>
#include <txgraphics/TXGraphicsEngine.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/drawing/layers/IconPainter.h>
#include <txmap/drawing/layers/PlacedSymbols.h>
#include <txmap/labels/HaloCopies.h>
#include <txmap/sources/Sprites.h>
#include <txmap/style/document/LayerProperty.h>
#include <txmap/symbols/SymbolCandidates.h>
#include <txmap/symbols/text/TextPainter.h>

namespace txmap
{

using TZObjects::TXFont;
using TZObjects::TXPoint;
using TZObjects::TXRefPtr;
using TZObjects::TXString;

namespace
{

// Pictures within texts hang below the line by this much, in their own pixels, as in browsers.
constexpr double kPictureDrop = 3.0;

constexpr double kPi = 3.141592653589793;

TXPoint Turned(const TXPoint& point, double degrees)
{
    const double cosine = std::cos(degrees * kPi / 180.0);
    const double sine = std::sin(degrees * kPi / 180.0);
    return {point.x * cosine - point.y * sine, point.x * sine + point.y * cosine};
}

TXPoint Sum(const TXPoint& a, const TXPoint& b) { return {a.x + b.x, a.y + b.y}; }

/// The colours of texts or icons, evaluated for each feature.
class PartPaint
{
public:
    /// @param part "text" or "icon".
    PartPaint(const LayerScene& scene, const std::string& part)
        : color(scene.layer, (part + "-color").c_str(), scene.Zoom(), scene.Context()),
          haloColor(scene.layer, (part + "-halo-color").c_str(), scene.Zoom(), scene.Context()),
          haloWidth(scene.layer, (part + "-halo-width").c_str(), scene.Zoom(), scene.Context()),
          haloBlur(scene.layer, (part + "-halo-blur").c_str(), scene.Zoom(), scene.Context()),
          opacity(scene.layer, (part + "-opacity").c_str(), scene.Zoom(), scene.Context(), 1.0)
    {
    }

    LayerProperty<Color> color;
    LayerProperty<Color> haloColor;
    LayerProperty<double> haloWidth;
    LayerProperty<double> haloBlur;
    LayerProperty<double> opacity;
};

class SymbolLayerPainter
{
public:
    SymbolLayerPainter(const LayerScene& scene, const PlacedSymbols::Layer& placed)
        : scene(scene), placed(placed), layout(*placed.layout), context(scene.Context()), icons(scene.canvas),
          text(scene, "text"), icon(scene, "icon")
    {
        if (!scene.layer.markCharacter.empty())
            markCharacter = TXString(scene.layer.markCharacter).toStdWString()[0];
    }

    void Draw()
    {
        ForEach(
            [&](const SymbolInstance& instance, const SymbolVerdict& verdict)
            {
                if (verdict.icon)
                    DrawIcon(instance, verdict);
            });
        TextPainter texts(scene.canvas.Engine(), scene.canvas.Surface());
        ForEach(
            [&](const SymbolInstance& instance, const SymbolVerdict& verdict)
            {
                if (verdict.text)
                    DrawText(texts, instance, verdict);
            });
    }

private:
    /// Calls @p visit with each symbol and what is shown of it, in the order in which they are drawn.
    template <class Visit>
    void ForEach(Visit visit)
    {
        const std::size_t count = layout.instances.size();
        for (std::size_t i = 0; i < count; ++i)
        {
            // The lowest in the picture was placed first, and lies on top.
            const std::size_t number = layout.properties.order == SymbolOrder::Downward ? count - 1 - i : i;
            const SymbolVerdict& verdict = placed.verdicts[number];
            if (!verdict.text && !verdict.icon)
                continue;
            Select(layout.instances[number]);
            visit(layout.instances[number], verdict);
        }
    }

    void Select(const SymbolInstance& instance)
    {
        if (set != instance.placed->features.get())
        {
            set = instance.placed->features.get();
            attributes.emplace(*set);
            context.feature = &*attributes;
            context.tileZoom = instance.placed->tileZoom;
        }
        attributes->Select(*instance.feature);
    }

    /// @param picture null for a character.
    IconInk InkOfIcon(const SpritePicture* picture)
    {
        IconInk ink;
        if (picture && !picture->isDistanceField)
            return ink;
        ink.color = icon.color.At(context);
        ink.haloColor = icon.haloColor.At(context);
        ink.haloWidth = icon.haloWidth.At(context);
        ink.haloBlur = icon.haloBlur.At(context);
        return ink;
    }

    void DrawIcon(const SymbolInstance& instance, const SymbolVerdict& verdict)
    {
        const SymbolContent& content = *instance.content;
        const TextPlace* const place =
            verdict.choice < content.places.size() ? &content.places[verdict.choice] : nullptr;
        TXPoint at = Sum(instance.pixel, layout.iconMove);
        if (place)
            at = Sum(at, content.IconMove(*place));
        const IconShape& shape = place ? content.IconFor(*place) : *content.icon;
        scene.evaluating.Start();
        const IconInk ink = InkOfIcon(shape.picture);
        const double opacity = icon.opacity.At(context);
        scene.evaluating.Stop();
        const double angle = IconAngle(layout.properties, instance, scene.canvas.View());
        if (shape.picture)
            icons.Draw(shape, at, angle, content.iconScale, ink, opacity);
        else
            DrawMark(shape, at, angle, ink, opacity);
    }

    /// A character of a font, in the middle of an icon's place.
    void DrawMark(const IconShape& shape, const TXPoint& at, double angle, const IconInk& ink, double opacity)
    {
        const TZObjects::TXRect box = shape.Box();
        const TXPoint centre = Sum(at, Turned({(box.left + box.right) / 2.0, (box.top + box.bottom) / 2.0}, angle));
        const double height = box.bottom - box.top;
        if (!markFont)
        {
            // A font of its own, as the markers leave their size and face in it.
            markFont = TXRefPtr<TXFont>(scene.canvas.Engine().NewFont());
            RequireDrawn(markFont && markFont->Create());
        }
        scene.canvas.Surface().SelectFont(markFont);
        const auto draw = [&](const Color& color, const TXPoint& by)
        {
            PenLook pen;
            pen.color = color;
            pen.color.alpha *= opacity;
            scene.canvas.UsePen(pen);
            RequireDrawn(scene.canvas.Surface().FontMarker(centre.x + by.x, centre.y + by.y, height, height, angle,
                                                           TXString(scene.layer.markFont),
                                                           static_cast<short>(markCharacter)));
        };
        if (ink.haloWidth > 0.0 && ink.haloColor.alpha > 0.0)
            for (const TXPoint& by : HaloCopies(ink.haloWidth * scene.Scale()))
                draw(ink.haloColor, by);
        draw(ink.color, {});
    }

    TextInk InkOfText()
    {
        scene.evaluating.Start();
        TextInk ink;
        ink.color = text.color.At(context);
        ink.opacity = text.opacity.At(context);
        ink.haloColor = text.haloColor.At(context);
        ink.haloWidth = text.haloWidth.At(context) * scene.Scale();
        ink.haloBlur = text.haloBlur.At(context) * scene.Scale();
        scene.evaluating.Stop();
        return ink;
    }

    void DrawText(TextPainter& texts, const SymbolInstance& instance, const SymbolVerdict& verdict)
    {
        const SymbolContent& content = *instance.content;
        const TextInk ink = InkOfText();
        if (instance.fitted)
            return texts.Draw(*instance.fittedText, Moved(*instance.fitted), ink);
        const TextPlace& place = content.places[verdict.choice];
        const TXPoint origin(place.block->width / 2.0 - place.centre.x, place.block->height / 2.0 - place.centre.y);
        const TXPoint at = Sum(instance.pixel, layout.textMove);
        const double angle = TextAngle(layout.properties, instance, scene.canvas.View());
        texts.Draw(*place.block, at, origin, angle, ink);
        for (const ImagePiece& image : place.block->images)
            DrawImage(image, origin, at, angle, ink);
    }

    /// A picture within a text.
    void DrawImage(const ImagePiece& image, const TXPoint& origin, const TXPoint& at, double angle, const TextInk& ink)
    {
        const SpritePicture* const picture = scene.data.Pictures().Find(image.image);
        if (!picture || !(image.width > 0.0 && image.height > 0.0))
            return;
        const double drop = kPictureDrop * image.height / picture->Height();
        const TXPoint corner = Turned({image.topLeft.x - origin.x, image.topLeft.y - origin.y + drop}, angle);
        const IconShape shape{picture,
                              {{0.0, 0.0}, {image.width, 1.0 * picture->pixels.size.width}},
                              {{0.0, 0.0}, {image.height, 1.0 * picture->pixels.size.height}}};
        IconInk iconInk;
        iconInk.color = ink.color;
        icons.Draw(shape, Sum(at, corner), angle, image.width / picture->Width(), iconInk, ink.opacity);
    }

    FittedText Moved(FittedText fitted) const
    {
        for (FittedCluster& cluster : fitted.clusters)
            cluster.at = Sum(cluster.at, layout.textMove);
        return fitted;
    }

    const LayerScene& scene;
    const PlacedSymbols::Layer& placed;
    const SymbolLayout& layout;
    EvaluationContext context;
    const FeatureSet* set = nullptr;
    std::optional<FeatureAttributes> attributes;
    IconPainter icons;
    PartPaint text;
    PartPaint icon;
    TXRefPtr<TXFont> markFont;
    wchar_t markCharacter = 0;
};

} // namespace

void DrawSymbolLayer(const LayerScene& scene)
{
    if (const PlacedSymbols::Layer* const placed = scene.symbols.Find(scene.layer); placed)
        SymbolLayerPainter(scene, *placed).Draw();
}

} // namespace txmap
