#pragma once

#include <array>
#include <chrono>
#include <vector>

#include <txbase/TXRect.h>
#include <txmap/drawing/layers/MapCanvas.h>
#include <txmap/sources/MapData.h>
#include <txmap/sources/PassingFeatures.h>
#include <txmap/style/document/MapStyle.h>

namespace txmap
{

class PatternImages;
class PlacedSymbols;

/// Adds up the time in which it runs.
class Stopwatch
{
public:
    void Start() { begin = std::chrono::steady_clock::now(); }
    void Stop() { total += std::chrono::steady_clock::now() - begin; }
    double Seconds() const { return std::chrono::duration<double>(total).count(); }

private:
    std::chrono::steady_clock::time_point begin;
    std::chrono::steady_clock::duration total{};
};

/// What expressions of a style may ask beside the feature.
EvaluationContext ContextOf(const MapStyle& style, const MapData& data, double zoom);

/// What the painter of a layer works with.
struct LayerScene
{
    MapCanvas& canvas;
    const MapStyle& style;
    const StyleLayer& layer;
    const MapData& data;
    PatternImages& patterns;
    const PlacedSymbols& symbols;
    Stopwatch& evaluating;

    double Zoom() const { return canvas.View().Zoom(); }
    /// Pixels for each logical one.
    double Scale() const { return canvas.View().Scale(); }
    /// What expressions may ask beside the feature.
    EvaluationContext Context() const;
};

/// What a layer shows of a set: the features that pass its filter, in its order, without those that are too far away.
/// @param prefix what the names of the layer's properties begin with: "fill".
/// @param reach how far a feature may lie from the picture and still be seen, in pixels, apart from what the layer is
/// moved by.
std::vector<PassedFeature> PassingFeatures(const LayerScene& scene, const PlacedFeatures& placed, const char* prefix,
                                           double reach);

/// Mercator coordinates to pixels, with what the layer says in "*-translate" and "*-translate-anchor".
/// @param prefix what the names of these properties begin with: "fill".
AffineMatrix TranslatedPixels(const LayerScene& scene, const char* prefix, int world);

} // namespace txmap
