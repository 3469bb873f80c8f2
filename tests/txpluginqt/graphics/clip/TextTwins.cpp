#include "TextTwins.h"

using namespace TZObjects;

TextTwins::TextTwins(TXImage::Format format, const Look& look)
    : look(look), twins(look, format, DirectCairo::Switched, 100, 76), direct(&twins.Expected())
{
    direct.setRenderHints(SurfacePainter().renderHints());
    direct.setFont(SurfacePainter().font());
    Both(
        [](QPainter& painter)
        {
            painter.setPen(QPen(QColor(20, 60, 140, 200), 2.5));
            painter.setBrush(QColor(230, 170, 40, 150));
            AvoidUncertainEdges(painter);
        });
}

void TextTwins::Clip(const Rings& region, bool fill, const TXColor& color)
{
    ::Clip(Surface(), region, fill, color);
    ClipDirectly(direct, region, fill, color);
    ClipDirectly(twins.Direct(), region);
}

void TextTwins::Clip(const Rings& region, const TXGraphics::stGradientParams& gradient)
{
    ::Clip(Surface(), region, gradient);
    ClipDirectly(direct, region, gradient);
}

void TextTwins::Clip(const Rings& region) { Clip(region, false, TXColor::RED_); }

void TextTwins::RestoreClip()
{
    Surface().RestoreClipRegion();
    direct.setClipping(false);
    cairo_reset_clip(twins.Direct());
}

void TextTwins::Label(const ShortLabel& call, Entry entry)
{
    EXPECT_TRUE(::Draw(Surface(), entry, call)) << entry << ", " << look;
    DrawDirectly(twins.Direct(), entry, call, look);
}

void TextTwins::Label() { Label(WideLabel()); }

void TextTwins::Flood()
{
    EXPECT_TRUE(Surface().fillRect(TXRect(-500, 500, -500, 500), TXColor(40, 200, 90, 150)));
    direct.fillRect(QRect(-500, -500, 1000, 1000), QColor(40, 200, 90, 150));
}

::testing::AssertionResult TextTwins::Same()
{
    const ::testing::AssertionResult state = SameState(SurfacePainter(), direct);
    return state ? twins.Same() : state;
}

::testing::AssertionResult TextTwins::SameAndInked()
{
    const ::testing::AssertionResult same = Same();
    return same ? twins.SameAndInked() : same;
}

ShortLabel WideLabel()
{
    ShortLabel call;
    call.x = 2.25;
    call.y = 1.5;
    call.text = L"HMWHMW\nWMHWMH\nHMWHMW";
    return call;
}
