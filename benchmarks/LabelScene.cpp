#include "LabelScene.h"

using namespace TZObjects;

namespace
{

constexpr int kRepeatedNames = 250;

std::shared_ptr<LabelScene> Make(const LabelLook& look, int items, bool withCairo)
{
    auto scene = std::make_shared<LabelScene>();
    scene->canvas = std::make_shared<Canvas>();
    scene->look = look;
    scene->font = DirectFont(look);
    scene->names = Names(kRepeatedNames, 1);
    Canvas& canvas = *scene->canvas;
    canvas.Use({{}, look.fill, 1.0, true});
    canvas.Surface().SelectFont(MakeFont(look));
    canvas.Direct().setFont(scene->font);
    if (withCairo)
    {
        canvas.Surface().EnableCairoDrawing(true);
        PrepareCairo(canvas.DirectCairo(), look);
    }
    Random random(6);
    for (int i = 0; i < items; ++i)
        scene->places.emplace_back(random.Real(0.0, 930.0), random.Real(0.0, 1000.0));
    return scene;
}

} // namespace

Scene NewLabelScene(Scene scene, const LabelLook& look, Repetition repetition, DrawLabel ours, DrawLabel direct,
                    void (*change)(Name&), bool withCairo)
{
    const int items = scene.items;
    scene.make = [=]
    {
        const std::shared_ptr<LabelScene> labels = Make(look, items, withCairo);
        if (change)
            for (Name& name : labels->names)
                change(name);
        Contenders contenders;
        contenders.begin = [=](int)
        {
            // So that no two scenes or repetitions share one.
            static int next = 1 << 16;
            labels->canvas->Wipe();
            if (repetition == Repetition::Repeated)
                return;
            labels->names.clear();
            for (int i = 0; i < items; ++i)
            {
                labels->names.push_back(DistinctName(next++));
                if (change)
                    change(labels->names.back());
            }
        };
        contenders.ours = Each([=](int i) { ours(*labels, i); });
        contenders.direct = Each([=](int i) { direct(*labels, i); });
        contenders.differing = [=] { return labels->canvas->DifferingPixels(); };
        return contenders;
    };
    return scene;
}
