#pragma once

#include <functional>
#include <string>
#include <vector>

/// Draws, or computes, the items from @p first to before @p last.
using Way = std::function<void(int first, int last)>;

/// One item after the other.
template <class Draw>
Way Each(Draw draw)
{
    return [draw](int first, int last)
    {
        for (int i = first; i < last; ++i)
            draw(i);
    };
}

/// The ways to do the same work that are compared. Those that are empty do not compete.
struct Contenders
{
    Way ours;   ///< Through the interface of the plugin.
    Way direct; ///< In direct calls of `QPainter`, or of cairo for what the plugin draws with cairo.
    Way cairo;
    Way agg;
    /// Before a repetition: empty pictures, other names.
    std::function<void(int repetition)> begin;
    /// Before each turn of a repetition; may be empty.
    std::function<void(int turn)> turn;
    /// After a repetition: how many pixels or numbers differ between ours and direct.
    std::function<long()> differing;
};

/// What the ratio of a scene may be at most.
struct Limit
{
    double ratio = 0.0; ///< 0 for no limit.

    static Limit None() { return {}; }
    /// Every drawing operation costs what the direct call costs.
    static Limit Drawing() { return {1.03}; }
    /// Characters of a symbol font.
    static Limit SmallMarker() { return {1.05}; }
    /// Where the rasteriser saves time, at most so much of the direct call's.
    static Limit AtMost(double ratio) { return {ratio}; }
    /// The first time costs what it costs without a cache.
    static Limit CacheMiss() { return {1.02}; }
    /// So many times as fast as direct.
    static Limit TimesAsFast(double times) { return {1.0 / times}; }
};

struct Scene
{
    const char* subject; ///< The heading that the scene stands under.
    std::string name;
    int items; ///< How many there are to draw.
    Limit limit;
    std::function<Contenders()> make; ///< Is called when the scene's turn comes.
};

using Scenes = std::vector<Scene>;

/// One function for each subject.
/// @{
void AddPolygons(Scenes& scenes);
void AddPolylines(Scenes& scenes);
void AddShapes(Scenes& scenes);
void AddMarkers(Scenes& scenes);
void AddTiles(Scenes& scenes);
void AddLabels(Scenes& scenes);
void AddCairoLabels(Scenes& scenes);
void AddMeasuring(Scenes& scenes);
void AddSelection(Scenes& scenes);
void AddWorldMap(Scenes& scenes);
/// @}
