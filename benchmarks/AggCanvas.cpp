#include "AggCanvas.h"

#ifdef TX_BENCH_AGG

#include <agg2/agg_conv_stroke.h>
#include <agg2/agg_path_storage.h>
#include <agg2/agg_pixfmt_rgba.h>
#include <agg2/agg_rasterizer_scanline_aa.h>
#include <agg2/agg_renderer_base.h>
#include <agg2/agg_renderer_scanline.h>
#include <agg2/agg_rendering_buffer.h>
#include <agg2/agg_scanline_u.h>

#include "Canvas.h"

using namespace TZObjects;

struct AggCanvas::Renderer
{
    explicit Renderer(QImage& picture)
        : buffer(picture.bits(), static_cast<unsigned>(picture.width()), static_cast<unsigned>(picture.height()),
                 picture.bytesPerLine()),
          pixels(buffer), base(pixels), solid(base)
    {
        rasterizer.clip_box(0, 0, picture.width(), picture.height());
    }

    static agg::rgba8 Color(const TXColor& color)
    {
        return agg::rgba8(color.getR(), color.getG(), color.getB(), color.getA()).premultiply();
    }

    void Fill()
    {
        rasterizer.reset();
        rasterizer.filling_rule(agg::fill_even_odd);
        rasterizer.add_path(path);
        solid.color(Color(look.fill));
        agg::render_scanlines(rasterizer, scanline, solid);
    }

    void Stroke()
    {
        agg::conv_stroke<agg::path_storage> stroke(path);
        stroke.width(look.width);
        stroke.line_join(agg::round_join);
        stroke.line_cap(agg::round_cap);
        rasterizer.reset();
        rasterizer.filling_rule(agg::fill_non_zero);
        rasterizer.add_path(stroke);
        solid.color(Color(look.outline));
        agg::render_scanlines(rasterizer, scanline, solid);
    }

    void AddLine(const TXPoint* points, int count)
    {
        for (int i = 0; i < count; ++i)
            i == 0 ? path.move_to(points[i].x, points[i].y) : path.line_to(points[i].x, points[i].y);
    }

    Look look;
    agg::rendering_buffer buffer;
    agg::pixfmt_bgra32_pre pixels;
    agg::renderer_base<agg::pixfmt_bgra32_pre> base;
    agg::renderer_scanline_aa_solid<agg::renderer_base<agg::pixfmt_bgra32_pre>> solid;
    agg::rasterizer_scanline_aa<> rasterizer;
    agg::scanline_u8 scanline;
    agg::path_storage path;
};

AggCanvas::AggCanvas(QImage& picture) : renderer(std::make_unique<Renderer>(picture)) {}

bool AggCanvas::IsThere() { return true; }

void AggCanvas::Use(const Look& look) { renderer->look = look; }

void AggCanvas::Rings(const TXPoint* points, const int* counts, int rings)
{
    renderer->path.remove_all();
    for (int i = 0; i < rings; ++i)
    {
        renderer->AddLine(points, counts[i]);
        renderer->path.close_polygon();
        points += counts[i];
    }
    if (renderer->look.filled)
        renderer->Fill();
    if (renderer->look.width > 0.0)
        renderer->Stroke();
}

void AggCanvas::Polyline(const TXPoint* points, int count)
{
    renderer->path.remove_all();
    renderer->AddLine(points, count);
    renderer->Stroke();
}

#else

using namespace TZObjects;

struct AggCanvas::Renderer
{
};

AggCanvas::AggCanvas(QImage&) {}
bool AggCanvas::IsThere() { return false; }
void AggCanvas::Use(const Look&) {}
void AggCanvas::Rings(const TXPoint*, const int*, int) {}
void AggCanvas::Polyline(const TXPoint*, int) {}

#endif

AggCanvas::~AggCanvas() = default;
