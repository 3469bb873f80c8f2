#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include <QFont>
#include <QPainter>

#include <txgraphics/txgraphics.h>

/// How a symbol of points is placed: by the overload of an anchor, or by the one of an offset and a centre.
enum class Placement
{
    ByAnchor,
    ByOffset
};

constexpr Placement kPlacements[] = {Placement::ByAnchor, Placement::ByOffset};

/// The arguments of both `VectorMarker` overloads; the anchor's has no offset.
struct PointSymbol
{
    double offsetX = 12.0;
    double offsetY = -8.0;
    double scaleX = 1.0;
    double scaleY = 1.0;
    double x = 48.0; ///< where the symbol is placed, or what it turns about
    double y = 36.0;
    double angle = 0.0;
    std::vector<TZObjects::TXPoint> points;
    int count = 0;
    bool closed = true;

    void SetPoints(std::vector<TZObjects::TXPoint> newPoints);
    /// Every number but those of the points, for tests that spoil one of them.
    std::vector<double*> Numbers(Placement placement);
};

/// A star whose sides cross each other: every @p step-th of @p corners points on a circle.
std::vector<TZObjects::TXPoint> Star(int corners, int step, double radius);

/// The operation under test.
bool Draw(TZObjects::TXGraphics& surface, Placement placement, const PointSymbol& symbol);
/// What it has to draw.
void DrawDirectly(QPainter& painter, Placement placement, const PointSymbol& symbol);
/// The symbol's points where they belong in relation to (x, y).
std::vector<QPointF> PlacedPoints(Placement placement, const PointSymbol& symbol);

std::ostream& operator<<(std::ostream& out, const PointSymbol& symbol);

/// The arguments of `FontMarker`.
struct CharacterSymbol
{
    double x = 48.0;
    double y = 36.0;
    double width = 20.0;
    double height = 20.0;
    double angle = 0.0;
    std::wstring fontName = L"DejaVu Sans";
    short character = 'R';

    /// The one-character text.
    QString Text() const { return QString(QChar(static_cast<ushort>(character))); }
    /// The font's size in whole pixels that a width or height asks for.
    static int Pixels(double size);
    std::vector<double*> Numbers() { return {&x, &y, &width, &height, &angle}; }
};

/// The operation under test.
bool Draw(TZObjects::TXGraphics& surface, const CharacterSymbol& symbol);
/// What it has to draw through Qt, and what becomes of the selected font, which is @p font here.
void DrawDirectly(QPainter& painter, QFont& font, const CharacterSymbol& symbol);

std::ostream& operator<<(std::ostream& out, const CharacterSymbol& symbol);
