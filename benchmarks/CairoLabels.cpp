// Labels through cairo, compared with direct cairo calls.
#include "LabelScene.h"

using namespace TZObjects;

namespace
{

constexpr const char* kSubject = "Labels through cairo";
// In each repetition, of which there are eleven.
constexpr int kLabels = 500;

void HaloOurs(const LabelScene& scene, int i)
{
    const TXPoint& p = scene.places[i];
    scene.canvas->Surface().DrawOutlineString(p.x, p.y, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft,
                                              scene.NameOf(i).text, scene.look.fill, 0.0, 0.0, 1.0);
}

void HaloDirect(const LabelScene& scene, int i)
{
    const TXPoint& p = scene.places[i];
    DrawCairoLabel(scene.canvas->DirectCairo(), scene.look, true, p.x, p.y, scene.NameOf(i).text.toUTF8());
}

void VerticalOurs(const LabelScene& scene, int i)
{
    const TXPoint& p = scene.places[i];
    scene.canvas->Surface().DrawVerticalString(p.x, p.y, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft,
                                               scene.NameOf(i).text, scene.look.fill, 0.0, 0.0, 0.0, true, 1.0);
}

void VerticalDirect(const LabelScene& scene, int i)
{
    const TXPoint& p = scene.places[i];
    std::vector<std::string> characters;
    for (const char character : scene.NameOf(i).text.toUTF8())
        characters.emplace_back(1, character);
    DrawCairoColumn(scene.canvas->DirectCairo(), scene.look, p.x, p.y, characters);
}

} // namespace

void AddCairoLabels(Scenes& scenes)
{
    LabelLook look;
    for (const int halo : {1, 3})
    {
        look.haloWidth = halo;
        const std::string name = "12 pixels, halo " + std::to_string(halo) + ", ";
        scenes.push_back(NewLabelScene({kSubject, name + "250 names repeated", kLabels / 2, Limit::Drawing(), nullptr},
                                       look, Repetition::Repeated, HaloOurs, HaloDirect, nullptr, true));
        scenes.push_back(NewLabelScene({kSubject, name + "distinct names", kLabels / 2, Limit::CacheMiss(), nullptr},
                                       look, Repetition::Distinct, HaloOurs, HaloDirect, nullptr, true));
    }
    look.haloWidth = 1;
    scenes.push_back(
        NewLabelScene({kSubject, "vertical, halo 1, 250 names repeated", kLabels / 2, Limit::Drawing(), nullptr}, look,
                      Repetition::Repeated, VerticalOurs, VerticalDirect, nullptr, true));
}
