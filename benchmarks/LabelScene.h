#pragma once

#include <memory>
#include <vector>

#include "Canvas.h"
#include "NaiveLabels.h"
#include "Random.h"
#include "Scene.h"

enum class Repetition
{
    Repeated, ///< 250 names, again and again.
    Distinct  ///< Names that were never drawn before.
};

/// Labels at any position.
struct LabelScene
{
    std::shared_ptr<Canvas> canvas;
    LabelLook look;
    QFont font;
    std::vector<TZObjects::TXPoint> places;
    std::vector<Name> names;

    const Name& NameOf(int i) const { return names[static_cast<std::size_t>(i) % names.size()]; }
};

using DrawLabel = void (*)(const LabelScene& scene, int i);

/// @param scene all but the function that makes it.
/// @param change changes each name before it is used.
Scene NewLabelScene(Scene scene, const LabelLook& look, Repetition repetition, DrawLabel ours, DrawLabel direct,
                    void (*change)(Name&) = nullptr, bool withCairo = false);
