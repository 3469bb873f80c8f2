#include "RandomLabels.h"

#include <QPainterPath>

#include "LabelTexts.h"

using namespace TZObjects;

QColor RandomLabels::NextColor()
{
    const int red = Int(0, 255);
    const int green = Int(0, 255);
    const int blue = Int(0, 255);
    return {red, green, blue, Chance(40) ? 255 : Int(0, 255)};
}

FontChoice RandomLabels::NextFont()
{
    FontChoice font;
    font.family =
        OneOf<std::wstring>({L"DejaVu Sans", L"DejaVu Sans", L"DejaVu Serif", L"WenQuanYi Micro Hei", L"No Such Face"});
    font.height = OneOf({9, 12, 17, 24, 40});
    font.bold = Chance(30);
    font.italic = static_cast<TXFont::TXItalicMode>(Int(0, 2));
    font.underline = Chance(20);
    font.strikeOut = Chance(20);
    font.letterSpacing = OneOf({0.0, 0.0, 0.0, 2.5, -3.0, -30.0});
    font.halo = Chance(50);
    font.haloWidth = OneOf({1, 1, 2, 3, 7});
    const QColor color = NextColor();
    font.haloColor = TXColor(color.red(), color.green(), color.blue(), color.alpha());
    font.angle = OneOf({0, 30, 90, 180, -45, 359});
    return font;
}

Label RandomLabels::NextLabel()
{
    Label label;
    label.text = OneOf(LabelTexts());
    label.font = NextFont();
    label.vAlign = OneOf({1, 2, 3, 0, 7});
    label.hAlign = OneOf({1, 1, 2, 2, 3, 3, 0, 7});
    label.x = Real(0.0, 110.0);
    label.y = Real(0.0, 70.0);
    label.left = label.x + Real(-50.0, 20.0);
    label.right = label.x + Real(0.0, 60.0);
    label.top = label.y + Real(-30.0, 20.0);
    label.bottom = label.y + Real(0.0, 50.0);
    label.dx = Real(-15.0, 15.0);
    label.dy = Real(-15.0, 15.0);
    label.angle = OneOf({0.0, 0.0, 30.0, 90.0, 180.0, 359.5, -45.0, 1e-17});
    label.scale = OneOf({0.5, 1.0, 1.0, 2.0});
    label.lineSpacing = OneOf({0.0, 3.5, -4.0, 12.0});
    label.columnSpacing = OneOf({0.0, 2.5, -3.0, 10.0});
    label.charSpacing = OneOf({0.0, 1.75, -2.0, 6.0});
    label.halo = Chance(50);
    const QColor color = NextColor();
    label.fill = TXColor(color.red(), color.green(), color.blue(), color.alpha());
    return label;
}

std::function<void(QPainter&)> RandomLabels::NextChange()
{
    QTransform transform;
    if (Chance(40))
        transform.translate(Real(-20.0, 20.0), Real(-20.0, 20.0));
    if (Chance(20))
        transform.rotate(Real(-40.0, 40.0));
    QPainterPath clip;
    if (Chance(30))
    {
        if (Chance(50))
            clip.addRect(Int(0, 30), Int(0, 20), Int(60, 100), Int(40, 70));
        else
            clip.addEllipse(Real(0.0, 30.0), Real(0.0, 20.0), Real(60.0, 100.0), Real(40.0, 70.0));
    }
    const double opacity = Chance(25) ? 0.5 : 1.0;
    const bool antialiased = Chance(70);
    const bool textAntialiased = Chance(70);
    const auto mode = Chance(75) ? QPainter::CompositionMode_SourceOver
                                 : static_cast<QPainter::CompositionMode>(Int(QPainter::CompositionMode_DestinationOver,
                                                                              QPainter::CompositionMode_Exclusion));
    const QColor brush = NextColor();
    return [=](QPainter& painter)
    {
        painter.setTransform(transform);
        if (!clip.isEmpty())
            painter.setClipPath(clip);
        painter.setOpacity(opacity);
        painter.setRenderHint(QPainter::Antialiasing, antialiased);
        painter.setRenderHint(QPainter::TextAntialiasing, textAntialiased);
        painter.setCompositionMode(mode);
        painter.setBrush(brush);
    };
}
