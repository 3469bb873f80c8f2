#pragma once

#include <string>
#include <vector>

#include <txmap/drawing/layers/LayerScene.h>
#include <txmap/style/document/LayerProperty.h>

namespace txmap
{

/// How a line looks. Lengths are in pixels.
struct LineLook
{
    Color color; ///< With the opacity of the line.
    double width = 1.0;
    double wholeZoomWidth = 1.0; ///< What the width is at the whole zoom below; dashes and patterns count in it.
    double gap = 0.0;            ///< Between two lines that stand for one; 0 for one line.
    double offset = 0.0;         ///< To the right.
    double blur = 0.0;
    double opacity = 1.0;
    std::string cap;
    std::string join;
    double miterLimit = 2.0;
    std::vector<double> dashes;
    std::string pattern;
};

/// The properties of a layer of lines.
class LineProperties
{
public:
    explicit LineProperties(const LayerScene& scene);

    LineLook At(const EvaluationContext& context) const;
    /// Whether all features look the same.
    bool AreConstant() const;
    /// How far from its line a feature may be drawn, in pixels.
    double Reach() const;

private:
    double scale;
    double widest;    ///< In pixels.
    double dashScale; ///< Dashes grow from one whole zoom to the next.
    LayerProperty<Color> color;
    LayerProperty<double> opacity;
    LayerProperty<double> width;
    LayerProperty<double> wholeZoomWidth;
    LayerProperty<double> gap;
    LayerProperty<double> offset;
    LayerProperty<double> blur;
    LayerProperty<std::string> cap;
    LayerProperty<std::string> join;
    LayerProperty<double> miterLimit;
    LayerProperty<std::vector<double>> dashes;
    LayerProperty<std::string> pattern;
};

} // namespace txmap
