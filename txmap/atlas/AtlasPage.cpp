#include <txmap/atlas/AtlasPage.h>

#include <txmap/atlas/AtlasOptions.h>
#include <txmap/atlas/MapFrame.h>
#include <txmap/drawing/FramePainter.h>
#include <txmap/drawing/GraticulePainter.h>
#include <txmap/drawing/layers/StyledMap.h>
#include <txmap/labels/FaceChoice.h>
#include <txmap/map/Graticule.h>
#include <txmap/map/MapLayer.h>
#include <txmap/map/MapView.h>
#include <txmap/style/Style.h>
#include <txmap/support/Failure.h>

namespace txmap
{

using TZObjects::TXGraphicsEngine;

AtlasPage::AtlasPage(TXGraphicsEngine& engine, const AtlasOptions& options, const MapView& view, const Style& style)
    : options(options), view(view), style(style), mapCanvas(engine, view), canvas(mapCanvas),
      places(options.symbol, style, canvas.Unit(), options.labels.path)
{
    if (options.frame)
        frame = MakeFrame(*options.frame, view, FramePainter(canvas, style).Width());
    if (options.arrow)
        arrow.emplace(*options.arrow, view, Outline(), canvas.Unit());
}

void AtlasPage::LayOutDecorations(const std::vector<LegendEntry>& entries)
{
    if (!options.legend && !options.scaleBar)
        return;
    const FaceChoice choice = ChooseFace(options.labels.font, "--label-font " + options.labels.font);
    decorationFonts.emplace(canvas.Engine(), choice.face, options.labels.path);
    if (options.legend)
        legend.emplace(entries, view, style, *decorationFonts);
    if (options.scaleBar)
        scaleBar.emplace(view, style, *decorationFonts);
}

void AtlasPage::LayOutLabels(std::vector<MapLayer>& layers)
{
    if (!options.labels.wanted)
        return;
    labels.emplace(canvas.Engine(), view, style.labels, canvas.Unit(), options.labels);
    labelPainter.emplace(canvas, labels->Fonts());
    LabelSurroundings surroundings{places.Reach(), Outline(), {}};
    if (arrow)
        surroundings.taken.push_back(arrow->Box());
    if (legend && !legend->IsEmpty())
        surroundings.taken.push_back(legend->Box());
    if (scaleBar)
        surroundings.taken.push_back(scaleBar->Box());
    labels->LayOut(layers, surroundings);
}

void AtlasPage::Draw(const MapStyle& map, const MapData& data, const std::vector<MapLayer>& layers)
{
    FramePainter framePainter(canvas, style);
    if (frame)
        framePainter.Clip(*frame);
    DrawingReport report;
    DrawLayers(mapCanvas, map, data, report);
    GraticulePainter(canvas, style).Draw(MakeGraticule(view, options.graticule.value_or(SuitableStep(view))));
    for (const MapLayer& layer : layers)
        places.Draw(canvas, layer.places);
    framePainter.DrawMargins(view);
    if (labels)
        labelPainter->Draw(labels->Labels());
    if (frame)
        framePainter.Draw(*frame);
    if (arrow)
        arrow->Draw(canvas, style.arrow);
    if (!decorationFonts)
        return;
    LabelPainter texts(canvas, *decorationFonts);
    if (legend)
        legend->Draw(canvas, texts, places, style);
    if (scaleBar)
        scaleBar->Draw(canvas, texts, style);
}

void AtlasPage::ReportProblems(const std::function<void(const std::string&)>& warn) const
{
    for (const std::string& problem : {places.CharacterProblem(), labels ? labels->CharacterProblem() : ""})
        if (!problem.empty())
            warn(problem);
    std::string problems = places.FontProblem();
    if (labels && !labels->FontProblem().empty())
        problems += (problems.empty() ? "" : "; ") + labels->FontProblem();
    if (!problems.empty())
        throw Failure(ExitCode::Usage, problems);
}

} // namespace txmap
