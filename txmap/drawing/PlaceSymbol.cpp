#include <txmap/drawing/PlaceSymbol.h>

#include <cmath>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

constexpr double kTurn = 6.283185307179586;
// Characters are drawn smaller than the size of their font.
constexpr double kUsualCharacterSize = 4.4;

std::vector<TXPoint> Corners(int count, double radius, double everySecond)
{
    std::vector<TXPoint> corners;
    for (int i = 0; i < count; ++i)
    {
        const double angle = kTurn * i / count - kTurn / 4.0;
        const double distance = i % 2 == 0 ? radius : everySecond;
        corners.emplace_back(distance * std::cos(angle), distance * std::sin(angle));
    }
    return corners;
}

} // namespace

std::optional<PlaceSymbol::Shape> ShapeOf(std::string_view name)
{
    for (const auto& [known, shape] : kPlaceShapes)
        if (name == known)
            return shape;
    return std::nullopt;
}

std::vector<TXPoint> CornersOf(PlaceSymbol::Shape shape)
{
    constexpr double kHalf = 0.5;
    switch (shape)
    {
    case PlaceSymbol::Shape::Circle:
        return Corners(24, kHalf, kHalf);
    case PlaceSymbol::Shape::Square:
        return {{-kHalf, -kHalf}, {kHalf, -kHalf}, {kHalf, kHalf}, {-kHalf, kHalf}};
    case PlaceSymbol::Shape::Triangle:
        // Equal sides, which are 1 long.
        return Corners(3, 1.0 / std::sqrt(3.0), 1.0 / std::sqrt(3.0));
    case PlaceSymbol::Shape::Star:
    {
        // Its width, from the second tip to the last, is 1. A little stouter than the lines between the tips make it.
        const double radius = kHalf / std::sin(kTurn / 5.0);
        return Corners(10, radius, 0.44 * radius);
    }
    case PlaceSymbol::Shape::Cross:
    {
        constexpr double kArm = 0.17;
        return {{-kArm, -kHalf}, {kArm, -kHalf}, {kArm, -kArm}, {kHalf, -kArm}, {kHalf, kArm},   {kArm, kArm},
                {kArm, kHalf},   {-kArm, kHalf}, {-kArm, kArm}, {-kHalf, kArm}, {-kHalf, -kArm}, {-kArm, -kArm}};
    }
    case PlaceSymbol::Shape::Diamond:
        return Corners(4, kHalf, kHalf);
    case PlaceSymbol::Shape::Character:
        break;
    }
    return {};
}

double UsualSize(PlaceSymbol::Shape shape)
{
    switch (shape)
    {
    case PlaceSymbol::Shape::Circle:
    case PlaceSymbol::Shape::Square:
        return 1.0;
    case PlaceSymbol::Shape::Triangle:
        return 1.7;
    case PlaceSymbol::Shape::Star:
        return 2.5;
    case PlaceSymbol::Shape::Cross:
        return 2.0;
    case PlaceSymbol::Shape::Diamond:
        return 1.5;
    case PlaceSymbol::Shape::Character:
        break;
    }
    return kUsualCharacterSize;
}

} // namespace txmap
