// How often a map asks its backend for something: many features of one look need one brush or pen.
#include <algorithm>
#include <string>
#include <vector>

#include <tests/txgraphics/EngineDouble.h>
#include <tests/txgraphics/RecordingGraphics.h>
#include <tests/txmap/drawing/layers/StyledTwins.h>
#include <txgraphics/TXImage.h>
#include <txmap/drawing/layers/StyledMap.h>
#include <txmap/map/MercatorView.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>

using namespace TZObjects;
using namespace txmap;

namespace
{

constexpr int kSide = 256;
constexpr std::size_t kFeatures = 1000;

/// Makes what another engine makes, and counts it. Its surfaces draw nothing and write down their calls.
class CountingEngine : public EngineDouble
{
public:
    explicit CountingEngine(const TXGraphicsEngine& maker) : EngineDouble("counting", "1", ""), maker(maker) {}

    using EngineDouble::NewGraphics;
    TXBrush* NewBrush() const override
    {
        ++brushes;
        return maker.NewBrush();
    }
    TXPen* NewPen() const override
    {
        ++pens;
        return maker.NewPen();
    }
    TXImage* NewImage() const override { return maker.NewImage(); }
    TXGraphics* NewGraphics() const override
    {
        auto* const surface = new RecordingGraphics;
        surface->image = maker.NewImage();
        surface->image->CreateImage(kSide, kSide, TXImage::Format_ARGB32);
        return surface;
    }

    mutable int brushes = 0;
    mutable int pens = 0;

private:
    const TXGraphicsEngine& maker;
};

/// What a map asked for.
struct Asked
{
    int brushes = 0;
    int pens = 0;
    std::size_t shapes = 0; ///< Drawing operations with points.
};

class DrawingCalls : public StyledTwins
{
protected:
    /// A thousand features of a kind that touch nowhere, 6 pixels wide.
    static std::string Features(const std::string& type)
    {
        std::string features;
        for (std::size_t i = 0; i < kFeatures; ++i)
        {
            const double x = 1.0 + 8.0 * static_cast<double>(i % 32);
            const double y = 1.0 + 8.0 * static_cast<double>(i / 32);
            const std::string geometry =
                type == "Point" ? R"({"type": "Point", "coordinates": )" + Place(x + 3, y + 3) + "}"
                                : Geometry(type, {{{x, y}, {x + 6, y}, {x + 6, y + 6}, {x, y + 6}, {x, y}}});
            features += (i == 0 ? "" : ",") +
                        (R"({"type": "Feature", "properties": {"c": "#804020"}, "geometry": )" + geometry + "}");
        }
        return R"({"type": "FeatureCollection", "features": [)" + features + "]}";
    }

    Asked Draw(const std::string& geoJson, const std::string& layer, double zoom = 0.0)
    {
        const StyleReading reading = ReadStyle(R"({"version": 8, "sources": {"s": {"type": "geojson", "data": )" +
                                               geoJson + R"(}}, "layers": [)" + layer + "]}");
        EXPECT_TRUE(reading.problems.empty());
        const MercatorView view({0.0, 0.0, zoom, 0.0}, {kSide, kSide});
        SourceDiagnostics diagnostics(true);
        const MapData data(reading.style, SourceFolder(folder.Path().string()), view, diagnostics);
        const TXRefPtr<CountingEngine> engine(new CountingEngine(plugin.Engine()));
        MapCanvas canvas(*engine, view);
        DrawingReport report;
        DrawLayers(canvas, reading.style, data, report);
        const std::vector<std::string>& calls = static_cast<RecordingGraphics&>(canvas.Surface()).calls;
        const auto isShape = [](const std::string& call)
        { return call.compare(0, 4, "Poly") == 0 || call.compare(0, 8, "DrawPath") == 0; };
        return {engine->brushes, engine->pens,
                static_cast<std::size_t>(std::count_if(calls.begin(), calls.end(), isShape))};
    }
};

std::string Layer(const std::string& type, const std::string& paint)
{
    return R"({"id": "l", "source": "s", "type": ")" + type + R"(", "paint": {)" + paint + "}}";
}

} // namespace

TEST_F(DrawingCalls, AreasOfOneColourNeedOneBrush)
{
    for (const char* const color : {R"("fill-color": "#804020")", R"("fill-color": ["get", "c"])"})
    {
        const Asked asked = Draw(Features("Polygon"), Layer("fill", std::string(color) + R"(, "fill-opacity": 0.5)"));
        EXPECT_EQ(asked.brushes, 1);
        EXPECT_EQ(asked.pens, 0);
        EXPECT_GT(asked.shapes, 0u);
        EXPECT_LE(asked.shapes, kFeatures);
    }
}

TEST_F(DrawingCalls, LinesOfOneLookNeedOnePen)
{
    for (const char* const color : {R"("line-color": "#804020")", R"("line-color": ["get", "c"])"})
    {
        const Asked asked = Draw(Features("LineString"), Layer("line", color));
        EXPECT_EQ(asked.pens, 1);
        EXPECT_LE(asked.brushes, 1);
        EXPECT_GT(asked.shapes, 0u);
        EXPECT_LE(asked.shapes, kFeatures);
    }
}

TEST_F(DrawingCalls, CirclesOfOneLookNeedOneBrush)
{
    const Asked asked = Draw(Features("Point"), Layer("circle", R"("circle-color": ["get", "c"])"));
    EXPECT_EQ(asked.brushes, 1);
    EXPECT_EQ(asked.pens, 0);
    EXPECT_GT(asked.shapes, 0u);
    EXPECT_LE(asked.shapes, kFeatures);
}

TEST_F(DrawingCalls, WhatLiesOutsideIsNotDrawn)
{
    for (const auto& [type, layer] : {std::pair{"Polygon", "fill"}, {"LineString", "line"}, {"Point", "circle"}})
    {
        // A sixteenth of them is seen, and a few beside.
        const Asked asked = Draw(Features(type), Layer(layer, ""), 2.0);
        EXPECT_GE(asked.shapes, 64u) << layer;
        EXPECT_LE(asked.shapes, 150u) << layer;
    }
}
