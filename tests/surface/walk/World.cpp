#include "World.h"

#include <tests/support/ImageCompare.h>
#include <tests/support/PainterState.h>

#include "FontChange.h"

using namespace TZObjects;

namespace
{

template <class T, class Pointer>
const T* Inside(const Pointer& resource)
{
    return resource ? static_cast<const T*>(resource->GetInternalObject()) : nullptr;
}

bool SameImage(const QImage* actual, const QImage* expected)
{
    if (!actual || !expected)
        return actual == expected;
    return actual->size() == expected->size() && actual->format() == expected->format() && *actual == *expected;
}

bool AreTextures(const QBrush& actual, const QBrush& expected)
{
    return actual.style() == Qt::TexturePattern && expected.style() == Qt::TexturePattern;
}

/// Textures of the same pixels are the same here; to Qt they are different images.
bool SameBrush(const QBrush& actual, const QBrush& expected)
{
    if (!AreTextures(actual, expected))
        return actual == expected;
    return actual.textureImage() == expected.textureImage() && actual.transform() == expected.transform() &&
           actual.color() == expected.color();
}

::testing::AssertionResult SamePainter(const QPainter& actual, const QPainter& expected)
{
    PainterState actualState(actual);
    const PainterState expectedState(expected);
    if (AreTextures(actualState.brush, expectedState.brush) && SameBrush(actualState.brush, expectedState.brush))
        actualState.brush = expectedState.brush;
    return SameState(actualState, expectedState);
}

void PrepareImages(Side<UnderTest>& tested, Side<Modelled>& model, Random& random)
{
    constexpr QSize sizes[kImages] = {{96, 72}, {60, 50}, {96, 72}, {50, 60}, {30, 24}};
    for (std::size_t i = 0; i < kImages; ++i)
    {
        const auto format = static_cast<TXImage::Format>(random.Int(5, 6));
        tested.images[i]->CreateImage(sizes[i].width(), sizes[i].height(), format);
        model.images[i]->CreateImage(sizes[i].width(), sizes[i].height(), format);
        PaintBackground(*model.images[i]->pixels);
        PaintBackground(*static_cast<QImage*>(tested.images[i]->GetInternalObject()));
    }
}

void PreparePensAndFonts(Side<UnderTest>& tested, Side<Modelled>& model, Random& random)
{
    for (std::size_t i = 0; i < kPens; ++i)
    {
        const TXColor color = random.Color();
        tested.pens[i]->SetColor(color);
        model.pens[i]->SetColor(color);
    }
    for (std::size_t i = 0; i < kFonts; ++i)
        for (int attribute = 0; attribute < FontChange::kAttributes; ++attribute)
        {
            const FontChange change(random, attribute);
            change.Make(*tested.fonts[i]);
            change.Make(*model.fonts[i]);
        }
}

} // namespace

World::World(unsigned seed, TakeMessages take) : takeMessages(std::move(take))
{
    Random random(seed * 7919u + 13u);
    TXGraphicsEngineManager* const manager = TXGraphicsEngineManager::instance("");
    manager->EnableAntialiasing(random.Chance(75));
    manager->EnableCairoDrawing(random.Chance(40));
    manager->SetDefaultImageFormat(random.Int(5, 6));
    PrepareImages(tested, model, random);
    PreparePensAndFonts(tested, model, random);
    // Anew, because a surface reads the settings when it is made.
    for (std::size_t i = 0; i < kSurfaces; ++i)
    {
        tested.surfaces[i] = UnderTest::NewSurface();
        model.surfaces[i] = Modelled::NewSurface();
    }
}

World::~World() { FinishCanvases(); }

void World::FinishCanvases()
{
    if (finished)
        return;
    for (std::size_t i = 0; i < kCanvases; ++i)
    {
        const int saved = model.outsides[i]->saved;
        tested.canvases[i]->Finish(saved);
        model.canvases[i]->Finish(saved);
    }
    finished = true;
}

std::vector<World::ImagePair> World::ImagePairs()
{
    std::vector<ImagePair> pairs;
    for (std::size_t i = 0; i < kImages; ++i)
        pairs.push_back(
            {"image " + std::to_string(i), Inside<QImage>(tested.images[i]), model.images[i]->pixels.get()});
    for (std::size_t i = 0; i < kSurfaces; ++i)
    {
        const std::shared_ptr<ModelImage> image = model.surfaces[i]->GetImage();
        pairs.push_back({"target of surface " + std::to_string(i), Inside<QImage>(tested.surfaces[i]->GetImage()),
                         image ? image->pixels.get() : nullptr});
    }
    for (std::size_t i = 0; i < kCanvases; ++i)
        pairs.push_back({"canvas " + std::to_string(i), &tested.canvases[i]->Image(), &model.canvases[i]->Image()});
    return pairs;
}

std::string World::DifferingState()
{
    for (std::size_t i = 0; i < kSurfaces; ++i)
    {
        const auto* const actual = static_cast<const QPainter*>(tested.surfaces[i]->GetInteralObject());
        const QPainter* const expected = model.surfaces[i]->Painter();
        const std::string name = "surface " + std::to_string(i) + ": ";
        if (!actual || !expected)
        {
            if (actual || expected)
                return name + (actual ? "has" : "lacks") + " a painter";
            continue;
        }
        if (actual->isActive() != expected->isActive())
            return name + "its painter is " + (actual->isActive() ? "" : "not ") + "active";
        if (!expected->isActive())
            continue;
        if (const auto same = SamePainter(*actual, *expected); !same)
            return name + same.message();
    }
    return {};
}

std::string World::DifferingResources()
{
    for (std::size_t i = 0; i < kPens; ++i)
        if (*Inside<QPen>(tested.pens[i]) != model.pens[i]->qpen)
            return "pen " + std::to_string(i) + " differs";
    for (std::size_t i = 0; i < kBrushes; ++i)
        if (!SameBrush(*Inside<QBrush>(tested.brushes[i]), model.brushes[i]->qbrush))
            return "brush " + std::to_string(i) + " differs";
    for (std::size_t i = 0; i < kFonts; ++i)
        if (*Inside<QFont>(tested.fonts[i]) != model.fonts[i]->qfont ||
            tested.fonts[i]->GetFontName() != model.fonts[i]->GetFontName() ||
            tested.fonts[i]->GetFontWidth() != model.fonts[i]->GetFontWidth())
            return "font " + std::to_string(i) + " differs";
    return {};
}

std::optional<std::string> World::Difference()
{
    for (const ImagePair& pair : ImagePairs())
        if (!SameImage(pair.actual, pair.expected))
            return pair.name + " differs";
    if (const std::string state = DifferingState(); !state.empty())
        return state;
    if (const std::string resources = DifferingResources(); !resources.empty())
        return resources;
    return std::nullopt;
}

std::optional<std::string> World::DifferenceAtTheEnd()
{
    for (std::size_t i = 0; i < kCanvases; ++i)
        if (const auto same = SamePainter(tested.canvases[i]->Painter(), model.canvases[i]->Painter()); !same)
            return "canvas " + std::to_string(i) + ": " + same.message();
    FinishCanvases();
    return Difference();
}

std::string World::Explain()
{
    std::string explanation;
    for (const ImagePair& pair : ImagePairs())
        if (pair.actual && pair.expected && !SameImage(pair.actual, pair.expected))
            explanation += "\n  " + pair.name + ": " + SamePixels(*pair.actual, *pair.expected).message();
    return explanation;
}

bool World::LeftInk()
{
    std::size_t ink = 0;
    for (const ImagePair& pair : ImagePairs())
        if (pair.expected)
            ink = ink * 31 + qHash(QByteArray::fromRawData(reinterpret_cast<const char*>(pair.expected->constBits()),
                                                           static_cast<int>(pair.expected->sizeInBytes())));
    return std::exchange(inkBefore, ink) != ink;
}
