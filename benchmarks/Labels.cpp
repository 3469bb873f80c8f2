// Labels through Qt: with halo, plain, rich and vertical.
#include "Canvas.h"
#include "LabelScene.h"

using namespace TZObjects;

namespace
{

constexpr const char* kSubject = "Labels through Qt";
// In each repetition, of which there are eleven.
constexpr int kLabels = 500;

void HaloOurs(const LabelScene& scene, int i)
{
    const TXPoint& p = scene.places[i];
    scene.canvas->Surface().DrawOutlineString(p.x, p.y, p.x, p.y, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft,
                                              scene.NameOf(i).text, scene.look.fill, 0.0, 0.0, 1.0);
}

void HaloDirect(const LabelScene& scene, int i)
{
    const TXPoint& p = scene.places[i];
    DrawHaloLabel(scene.canvas->Direct(), scene.font, scene.look, QPointF(p.x, p.y), scene.NameOf(i).direct);
}

void PlainOurs(const LabelScene& scene, int i)
{
    const TXPoint& p = scene.places[i];
    scene.canvas->Surface().DrawString(p.x, p.y, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft,
                                       scene.NameOf(i).text, 0.0, 0.0, 1.0);
}

void PlainDirect(const LabelScene& scene, int i)
{
    const TXPoint& p = scene.places[i];
    DrawPlainLabel(scene.canvas->Direct(), scene.font, p.x, p.y, scene.NameOf(i).direct);
}

void RichOurs(const LabelScene& scene, int i)
{
    const TXPoint& p = scene.places[i];
    scene.canvas->Surface().DrawString(p.x, p.y, 0.0, 0.0, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft,
                                       scene.NameOf(i).text, 0.0, 1.0);
}

/// What labels have instead of HTML, put into HTML.
QString WithHtml(QString label)
{
    static const char* const kTags[][2] = {{"<BOL>", "<span style=\"font-weight:700\">"},
                                           {"</BOL>", "</span>"},
                                           {"<ITA>", "<span style=\"font-style:italic\">"},
                                           {"</ITA>", "</span>"},
                                           {"<UND>", "<u>"},
                                           {"</UND>", "</u>"}};
    for (const auto& tag : kTags)
        label.replace(QLatin1String(tag[0]), QLatin1String(tag[1]));
    return label;
}

void RichDirect(const LabelScene& scene, int i)
{
    const TXPoint& p = scene.places[i];
    DrawRichLabel(scene.canvas->Direct(), p.x, p.y, WithHtml(scene.NameOf(i).direct));
}

/// Bold and italic.
void MakeRich(Name& name)
{
    name.direct = "<BOL>" + name.direct + "</BOL> <ITA>No</ITA>";
    name.text = TXString(name.direct.toStdWString());
}

void VerticalOurs(const LabelScene& scene, int i)
{
    const TXPoint& p = scene.places[i];
    scene.canvas->Surface().DrawVerticalString(p.x, p.y, p.x, p.y, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft,
                                               scene.NameOf(i).text, scene.look.fill, 0.0, 0.0, 0.0, true, 1.0);
}

void VerticalDirect(const LabelScene& scene, int i)
{
    const TXPoint& p = scene.places[i];
    DrawVerticalLabel(scene.canvas->Direct(), scene.font, scene.look, QPointF(p.x, p.y), scene.NameOf(i).direct);
}

LabelLook LookOf(int height, int haloWidth)
{
    LabelLook look;
    look.height = height;
    look.haloWidth = haloWidth;
    return look;
}

} // namespace

void AddLabels(Scenes& scenes)
{
    for (const int height : {12, 16})
        for (const int halo : {1, 3})
        {
            const std::string name = std::to_string(height) + " pixels, halo " + std::to_string(halo) + ", ";
            const LabelLook look = LookOf(height, halo);
            scenes.push_back(NewLabelScene(
                {kSubject, name + "250 names repeated", kLabels, Limit::AtMost(halo == 1 ? 0.20 : 0.14), nullptr}, look,
                Repetition::Repeated, HaloOurs, HaloDirect));
            scenes.push_back(
                NewLabelScene({kSubject, name + "distinct names", kLabels / 2, Limit::AtMost(0.50), nullptr}, look,
                              Repetition::Distinct, HaloOurs, HaloDirect));
        }
    const LabelLook look = LookOf(12, 1);
    scenes.push_back(NewLabelScene({kSubject, "plain, 250 names repeated", kLabels, Limit::Drawing(), nullptr}, look,
                                   Repetition::Repeated, PlainOurs, PlainDirect));
    scenes.push_back(NewLabelScene({kSubject, "plain, distinct names", kLabels / 2, Limit::CacheMiss(), nullptr}, look,
                                   Repetition::Distinct, PlainOurs, PlainDirect));
    scenes.push_back(
        NewLabelScene({kSubject, "vertical, halo 1, 250 names repeated", kLabels / 2, Limit::Drawing(), nullptr}, look,
                      Repetition::Repeated, VerticalOurs, VerticalDirect));
    scenes.push_back(
        NewLabelScene({kSubject, "vertical, halo 1, distinct names", kLabels / 2, Limit::CacheMiss(), nullptr}, look,
                      Repetition::Distinct, VerticalOurs, VerticalDirect));
    scenes.push_back(NewLabelScene({kSubject, "rich, 250 names repeated", kLabels / 2, Limit::Drawing(), nullptr}, look,
                                   Repetition::Repeated, RichOurs, RichDirect, MakeRich));
}
