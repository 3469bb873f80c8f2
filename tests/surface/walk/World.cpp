#include "World.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include <tests/support/ImageCompare.h>
#include <tests/support/PainterState.h>

#include "Background.h"
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
    if (actual->size() != expected->size() || actual->format() != expected->format())
        return false;
    if (actual->format() != QImage::Format_Indexed8)
        return *actual == *expected;
    // Qt's own comparison looks up indices beyond the end of the colours.
    for (int y = 0; y < expected->height(); ++y)
        if (std::memcmp(actual->constScanLine(y), expected->constScanLine(y),
                        static_cast<std::size_t>(expected->width())) != 0)
            return false;
    return actual->colorTable() == expected->colorTable();
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

void PrepareImages(Side<UnderTest>& tested, Side<Modelled>& model, Random& random, int width)
{
    const QSize target(width, model.HeightOf(72));
    const QSize sizes[kImages] = {target, {60, 50}, target, {50, 60}, {30, 24}};
    for (int i = 0; i < kImages; ++i)
    {
        const auto format = static_cast<TXImage::Format>(model.FormatOf(random.Int(5, 6)));
        const QImage& background = Background(sizes[i], static_cast<QImage::Format>(static_cast<int>(format)));
        tested.images[i]->CreateImage(sizes[i].width(), sizes[i].height(), format);
        model.images[i]->CreateImage(sizes[i].width(), sizes[i].height(), format);
        for (QImage* const image : {tested.QtImage(i), model.QtImage(i)})
            std::memcpy(image->bits(), background.constBits(), static_cast<std::size_t>(background.sizeInBytes()));
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

/// A quick hash, for images that are long. The compiler can make vectors of it.
std::uint32_t Hash(const uchar* bytes, int count)
{
    std::uint32_t sum = 0;
    for (std::uint32_t i = 0; i < static_cast<std::uint32_t>(count) / 4; ++i)
    {
        std::uint32_t word = 0;
        std::memcpy(&word, bytes + i * 4, sizeof word);
        sum += (word ^ word >> 15) * (2 * i + 1);
    }
    return sum;
}

} // namespace

World::World(unsigned seed, int width, TakeMessages take) : takeMessages(std::move(take))
{
    tested.width = model.width = width;
    Random random(seed * 7919u + 13u);
    TXGraphicsEngineManager* const manager = TXGraphicsEngineManager::instance("");
    manager->EnableAntialiasing(random.Chance(75));
    manager->EnableCairoDrawing(random.Chance(40));
    tested.hasRawPixels = model.hasRawPixels = random.Chance(30);
    manager->SetDefaultImageFormat(model.FormatOf(random.Int(5, 6)));
    PrepareImages(tested, model, random, width);
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
        const ImagePair target = {"target of surface " + std::to_string(i),
                                  Inside<QImage>(tested.surfaces[i]->GetImage()),
                                  image ? image->pixels.get() : nullptr};
        const auto isTarget = [&](const ImagePair& pair)
        { return pair.actual == target.actual && pair.expected == target.expected; };
        if (std::none_of(pairs.begin(), pairs.end(), isTarget))
            pairs.push_back(target);
    }
    for (std::size_t i = 0; i < kCanvases; ++i)
        pairs.push_back({"canvas " + std::to_string(i), &tested.canvases[i]->Image(), &model.canvases[i]->Image()});
    return pairs;
}

const ModelImage* World::SourceOfModel(int surface, int number)
{
    model.current = static_cast<std::size_t>(surface);
    return model.Source(number).get();
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
            Inside<QFont>(tested.fonts[i])->resolve() != model.fonts[i]->qfont.resolve() ||
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
    {
        const QPainter& expected = model.canvases[i]->Painter();
        if (!expected.isActive())
            continue;
        if (const auto same = SamePainter(tested.canvases[i]->Painter(), expected); !same)
            return "canvas " + std::to_string(i) + ": " + same.message();
    }
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

bool World::LeftInk(int fromColumn)
{
    std::size_t ink = 0;
    for (const ImagePair& pair : ImagePairs())
    {
        if (!pair.expected || pair.expected->width() <= fromColumn)
            continue;
        const int pixelBytes = pair.expected->depth() / 8;
        const int bytes = (pair.expected->width() - fromColumn) * pixelBytes;
        for (int y = 0; y < pair.expected->height(); ++y)
            ink = ink * 31 + Hash(pair.expected->constScanLine(y) + fromColumn * pixelBytes, bytes);
    }
    return std::exchange(inkBefore, ink) != ink;
}
