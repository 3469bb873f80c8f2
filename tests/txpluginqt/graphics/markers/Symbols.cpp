#include "Symbols.h"

#include <cmath>
#include <ostream>

using namespace TZObjects;

void PointSymbol::SetPoints(std::vector<TXPoint> newPoints)
{
    points = std::move(newPoints);
    count = static_cast<int>(points.size());
}

std::vector<double*> PointSymbol::Numbers(Placement placement)
{
    std::vector<double*> numbers{&scaleX, &scaleY, &x, &y, &angle};
    if (placement == Placement::ByOffset)
        numbers.insert(numbers.end(), {&offsetX, &offsetY});
    return numbers;
}

std::vector<TXPoint> Star(int corners, int step, double radius)
{
    std::vector<TXPoint> points;
    for (int i = 0; i < corners; ++i)
    {
        const double turn = 2.0 * 3.14159265358979 * (i * step % corners) / corners;
        points.emplace_back(radius * std::sin(turn), -radius * std::cos(turn));
    }
    return points;
}

bool Draw(TXGraphics& surface, Placement placement, const PointSymbol& symbol)
{
    if (placement == Placement::ByAnchor)
        return surface.VectorMarker(symbol.x, symbol.y, symbol.scaleX, symbol.scaleY, symbol.angle,
                                    symbol.points.data(), symbol.count, symbol.closed);
    return surface.VectorMarker(symbol.offsetX, symbol.offsetY, symbol.scaleX, symbol.scaleY, symbol.x, symbol.y,
                                symbol.angle, symbol.points.data(), symbol.count, symbol.closed);
}

std::vector<QPointF> PlacedPoints(Placement placement, const PointSymbol& symbol)
{
    std::vector<QPointF> placed;
    for (int i = 0; i < symbol.count; ++i)
    {
        const TXPoint& point = symbol.points[static_cast<std::size_t>(i)];
        if (placement == Placement::ByAnchor)
            placed.emplace_back(symbol.scaleX * point.x, symbol.scaleY * point.y);
        else
            placed.emplace_back(point.x * symbol.scaleX + symbol.offsetX - symbol.x,
                                point.y * symbol.scaleY + symbol.offsetY - symbol.y);
    }
    return placed;
}

void DrawDirectly(QPainter& painter, Placement placement, const PointSymbol& symbol)
{
    const std::vector<QPointF> placed = PlacedPoints(placement, symbol);
    painter.save();
    painter.translate(symbol.x, symbol.y);
    if (std::abs(symbol.angle) > 1e-8)
        painter.rotate(symbol.angle);
    if (symbol.closed)
        painter.drawPolygon(placed.data(), symbol.count, Qt::OddEvenFill);
    else
        painter.drawPolyline(placed.data(), symbol.count);
    painter.restore();
}

std::ostream& operator<<(std::ostream& out, const PointSymbol& symbol)
{
    return out << "offset " << symbol.offsetX << ' ' << symbol.offsetY << ", scale " << symbol.scaleX << ' '
               << symbol.scaleY << ", at " << symbol.x << ' ' << symbol.y << ", angle " << symbol.angle << ", "
               << symbol.count << (symbol.closed ? " points, closed" : " points, open");
}

int CharacterSymbol::Pixels(double size) { return size < 1.0 ? 1 : static_cast<int>(std::floor(size + 0.5)); }

bool Draw(TXGraphics& surface, const CharacterSymbol& symbol)
{
    return surface.FontMarker(symbol.x, symbol.y, symbol.width, symbol.height, symbol.angle, symbol.fontName,
                              symbol.character);
}

void DrawDirectly(QPainter& painter, QFont& font, const CharacterSymbol& symbol)
{
    font.setPixelSize(CharacterSymbol::Pixels(symbol.height));
    if (!symbol.fontName.empty())
        font.setFamily(QString::fromStdWString(symbol.fontName));
    font.setStyleStrategy(QFont::PreferAntialias);
    painter.setFont(font);

    painter.save();
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.translate(symbol.x, symbol.y);
    painter.rotate(symbol.angle);
    painter.translate(-symbol.width * 0.5, -symbol.height * 0.5);
    const int width = static_cast<int>(symbol.width);
    const int height = static_cast<int>(symbol.height);
    constexpr int flags = Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextDontClip;
    painter.drawText(0, 0, width, height, flags, symbol.Text());
    if (symbol.height < 10.0)
        painter.drawText(0, 0, width, height, flags, symbol.Text());
    painter.restore();
}

std::ostream& operator<<(std::ostream& out, const CharacterSymbol& symbol)
{
    return out << "at " << symbol.x << ' ' << symbol.y << ", " << symbol.width << " x " << symbol.height << ", angle "
               << symbol.angle << ", U+" << std::hex << static_cast<ushort>(symbol.character) << std::dec << " of \""
               << QString::fromStdWString(symbol.fontName).toStdString() << '"';
}
