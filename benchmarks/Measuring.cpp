// Measuring labels, as Qt draws them.
#include <algorithm>

#include <QFontMetricsF>
#include <QStringList>

#include "Canvas.h"
#include "NaiveLabels.h"
#include "Random.h"
#include "Scene.h"

using namespace TZObjects;

namespace
{

constexpr const char* kSubject = "Measuring";
constexpr int kTexts = 10000;

struct MeasuringScene
{
    TXRefPtr<TXFont> ours = MakeFont(LabelLook());
    QFont direct = DirectFont(LabelLook());
    std::vector<Name> names = Names(250, 2);
    // Whatever was measured, added up.
    double sumOurs = 0.0;
    double sumDirect = 0.0;

    const Name& NameOf(int i) const { return names[static_cast<std::size_t>(i) % names.size()]; }
    /// Both sides begin with the text as a host has it.
    QString DirectTextOf(int i) const
    {
        const TZObjects::TXString& text = NameOf(i).text;
        return QString::fromWCharArray(text.wstr(), text.length());
    }
};

using Measure = double (*)(const MeasuringScene& scene, int i);

double ExtentOurs(const MeasuringScene& scene, int i)
{
    double width = 0.0;
    double height = 0.0;
    scene.ours->GetTextExtent(scene.NameOf(i).text, width, height, true);
    return width + height;
}

double ExtentDirect(const MeasuringScene& scene, int i)
{
    const QFontMetricsF metrics(scene.direct);
    const QString text = scene.DirectTextOf(i);
    const QRectF bounds = metrics.boundingRect(text);
    return std::max(metrics.horizontalAdvance(text), bounds.width()) + bounds.height();
}

double BlockOurs(const MeasuringScene& scene, int i)
{
    double width = 0.0;
    double height = 0.0;
    scene.ours->GetMultiTextExtent(scene.NameOf(i).text, width, height, true);
    return width + height;
}

double BlockDirect(const MeasuringScene& scene, int i)
{
    const QFontMetricsF metrics(scene.direct);
    double width = 0.0;
    double height = 0.0;
    for (const QString& line : scene.DirectTextOf(i).split('\n'))
    {
        const QRectF bounds = metrics.boundingRect(line);
        width = std::max(width, bounds.width());
        height += bounds.height();
    }
    return width + height;
}

double FontOurs(const MeasuringScene& scene, int)
{
    double height = 0.0;
    double ascent = 0.0;
    double descent = 0.0;
    scene.ours->GetFontMetricsInfo(height, ascent, descent, true);
    return height + ascent + descent;
}

double FontDirect(const MeasuringScene& scene, int)
{
    const QFontMetricsF metrics(scene.direct);
    return metrics.height() + metrics.ascent() + metrics.descent();
}

Scene MeasureScene(const char* name, int items, bool distinct, Limit limit, Measure ours, Measure direct)
{
    return {kSubject, name, items, limit,
            [=]
            {
                const auto scene = std::make_shared<MeasuringScene>();
                Contenders contenders;
                contenders.begin = [=](int)
                {
                    static int next = 1 << 20;
                    scene->sumOurs = scene->sumDirect = 0.0;
                    if (!distinct)
                        return;
                    scene->names.clear();
                    for (int i = 0; i < items; ++i)
                        scene->names.push_back(DistinctName(next++));
                };
                contenders.ours = Each([=](int i) { scene->sumOurs += ours(*scene, i); });
                contenders.direct = Each([=](int i) { scene->sumDirect += direct(*scene, i); });
                contenders.differing = [=] { return scene->sumOurs == scene->sumDirect ? 0L : 1L; };
                return contenders;
            }};
}

} // namespace

void AddMeasuring(Scenes& scenes)
{
    const Limit faster = Limit::TimesAsFast(2.0);
    const Limit miss = Limit::CacheMiss();
    scenes.push_back(
        MeasureScene("GetTextExtent, 250 names repeated", kTexts, false, faster, ExtentOurs, ExtentDirect));
    scenes.push_back(MeasureScene("GetTextExtent, distinct names", kTexts, true, miss, ExtentOurs, ExtentDirect));
    scenes.push_back(
        MeasureScene("GetMultiTextExtent, 250 names repeated", kTexts, false, faster, BlockOurs, BlockDirect));
    scenes.push_back(MeasureScene("GetMultiTextExtent, distinct names", kTexts, true, miss, BlockOurs, BlockDirect));
    scenes.push_back(MeasureScene("GetFontMetricsInfo", kTexts * 2, false, faster, FontOurs, FontDirect));
}
