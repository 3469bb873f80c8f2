#include <txmap/cli/ParseFrame.h>

#include <cmath>
#include <sstream>

#include <txmap/cli/OptionValues.h>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

constexpr char kRounded[] = "rounded";
constexpr double kFarthestCorner = 1e6;

/// True for a text that can only be meant as corners: numbers and what lies between them.
bool IsMeantAsCorners(const std::string& text)
{
    return text.find(',') != std::string::npos && text.find_first_not_of("0123456789+-.,eE \t") == std::string::npos;
}

/// The corners of a text such as "10,10 90,10 50,80"; none when it is anything else.
std::vector<TXPoint> CornersIn(const std::string& text)
{
    std::vector<TXPoint> corners;
    std::istringstream words(text);
    for (std::string word; words >> word;)
    {
        const std::vector<double> numbers = NumbersIn<double>(word, ',');
        if (numbers.size() != 2)
            return {};
        corners.emplace_back(numbers[0], numbers[1]);
    }
    return corners;
}

double ParseRadius(const std::string& text)
{
    const std::vector<double> numbers = NumbersIn<double>(text.substr(sizeof kRounded), ',');
    if (numbers.size() != 1 || !std::isfinite(numbers[0]) || numbers[0] < 0.0)
        Refuse("--frame", text, "the radius must be a number of pixels, 0 or more");
    return numbers[0];
}

} // namespace

FrameRequest ParseFrame(const std::string& text)
{
    FrameRequest request;
    if (text == kRounded)
        return request;
    if (text.rfind(std::string(kRounded) + ":", 0) == 0)
    {
        request.radius = ParseRadius(text);
        return request;
    }
    request.corners = CornersIn(text);
    if (request.corners.empty() && !IsMeantAsCorners(text))
    {
        request.kind = FrameRequest::Kind::File;
        request.source = text;
        return request;
    }
    request.kind = FrameRequest::Kind::Polygon;
    if (request.corners.size() < 3)
        Refuse("--frame", text, "needs at least three corners in pixels, such as '10,10 90,10 50,80'");
    // Written so that a NaN is refused as well.
    for (const TXPoint& corner : request.corners)
        if (!(std::abs(corner.x) <= kFarthestCorner && std::abs(corner.y) <= kFarthestCorner))
            Refuse("--frame", text, "the corners must be numbers of pixels, up to 1000000");
    return request;
}

} // namespace txmap
