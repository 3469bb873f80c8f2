#include <txmap/symbols/LineAnchors.h>

#include <algorithm>
#include <cmath>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

constexpr double kPi = 3.141592653589793;
// How many sizes of the text long the part of a label is within which a line may turn by the greatest angle.
constexpr double kAngleWindow = 0.6;
// So many sizes of the text beyond half a label, the first one stands away from the end of a line, where others meet.
constexpr double kRoomAtEnds = 2.0;
// Nobody sees more symbols on one line.
constexpr double kMostAnchors = 10000.0;

double Distance(const TXPoint& a, const TXPoint& b) { return std::hypot(b.x - a.x, b.y - a.y); }

/// A line whose lengths are added up once.
class MeasuredLine
{
public:
    MeasuredLine(const std::vector<TXPoint>& line, const LineAnchorNeeds& needs)
        : line(line), needs(needs), starts(line.size(), 0.0), turns(line.size(), 0.0)
    {
        for (std::size_t i = 1; i < line.size(); ++i)
            starts[i] = starts[i - 1] + Distance(line[i - 1], line[i]);
        for (std::size_t i = 1; i + 1 < line.size(); ++i)
            turns[i] = std::abs(std::remainder(Angle(i) - Angle(i - 1), 2.0 * kPi));
    }

    double Length() const { return starts.empty() ? 0.0 : starts.back(); }

    LineAnchor At(double distance) const
    {
        const auto after = std::upper_bound(starts.begin() + 1, starts.end() - 1, distance);
        const auto segment = static_cast<std::size_t>(after - starts.begin()) - 1;
        const double length = starts[segment + 1] - starts[segment];
        const double part = length > 0.0 ? (distance - starts[segment]) / length : 0.0;
        const TXPoint& a = line[segment];
        const TXPoint& b = line[segment + 1];
        return {{a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part}, distance, Angle(segment)};
    }

    bool HasRoom(double distance) const
    {
        return distance - needs.labelLength / 2.0 >= 0.0 && distance + needs.labelLength / 2.0 <= Length();
    }

    /// Whether the corners below a label stay within the greatest angle, added up over any few letters.
    bool IsSmooth(double distance) const
    {
        if (needs.labelLength <= 0.0 || !needs.hasText)
            return true;
        const double window = kAngleWindow * needs.textSize;
        const double limit = needs.maxAngle * kPi / 180.0;
        const auto first = std::upper_bound(starts.begin(), starts.end(), distance - needs.labelLength / 2.0);
        auto begin = static_cast<std::size_t>(first - starts.begin());
        double turned = 0.0;
        for (std::size_t i = begin; i + 1 < line.size() && starts[i] < distance + needs.labelLength / 2.0; ++i)
        {
            turned += turns[i];
            for (; starts[i] - starts[begin] > window; ++begin)
                turned -= turns[begin];
            if (turned > limit + 1e-9)
                return false;
        }
        return true;
    }

    void AppendAnchors(double first, double spacing, std::vector<LineAnchor>& anchors) const
    {
        const double count = std::min(kMostAnchors, std::ceil((Length() - first) / spacing));
        for (double i = 0.0; i < count; ++i)
            if (const double distance = first + i * spacing; HasRoom(distance) && IsSmooth(distance))
                anchors.push_back(At(distance));
    }

private:
    double Angle(std::size_t segment) const
    {
        return std::atan2(line[segment + 1].y - line[segment].y, line[segment + 1].x - line[segment].x);
    }

    const std::vector<TXPoint>& line;
    const LineAnchorNeeds& needs;
    std::vector<double> starts; ///< How far from the start of the line each point lies.
    std::vector<double> turns;  ///< By how much the line turns there.
};

} // namespace

std::vector<LineAnchor> AnchorsAlong(const std::vector<TXPoint>& line, const LineAnchorNeeds& needs)
{
    std::vector<LineAnchor> anchors;
    const MeasuredLine measured(line, needs);
    if (line.size() < 2 || !(measured.Length() > 0.0) || !(needs.spacing > 0.0) || !(needs.labelLength >= 0.0))
        return anchors;
    // Between the ends of two labels a quarter of the spacing is left.
    double spacing = needs.spacing;
    if (spacing - needs.labelLength < spacing / 4.0)
        spacing = needs.labelLength + spacing / 4.0;
    const double offset = needs.isContinued ? spacing / 2.0 : needs.labelLength / 2.0 + kRoomAtEnds * needs.textSize;
    measured.AppendAnchors(std::fmod(offset * needs.overscaling, spacing), spacing, anchors);
    if (const double middle = measured.Length() / 2.0;
        anchors.empty() && !needs.isContinued && measured.HasRoom(middle) && measured.IsSmooth(middle))
        anchors.push_back(measured.At(middle));
    return anchors;
}

std::optional<LineAnchor> MiddleAnchor(const std::vector<TXPoint>& line, const LineAnchorNeeds& needs)
{
    const MeasuredLine measured(line, needs);
    const double middle = measured.Length() / 2.0;
    if (line.size() < 2 || !(middle > 0.0) || (needs.hasText && !measured.HasRoom(middle)) ||
        !measured.IsSmooth(middle))
        return std::nullopt;
    return measured.At(middle);
}

} // namespace txmap
