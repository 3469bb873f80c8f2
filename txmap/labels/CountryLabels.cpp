#include <txmap/labels/CountryLabels.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <tuple>
#include <utility>

#include <txmap/labels/InnerPoints.h>

namespace txmap
{

using TZObjects::TXRect;
using TZObjects::TXString;

namespace
{

// The visible size of a country whose text has the usual height, in squares of that height.
constexpr double kMediumCountry = 25.0;
constexpr double kGrowth = 0.17;
// From how much larger than the usual text letters are spaced.
constexpr double kSpacedFrom = 1.1;
// A label half as high as this part of the room about its centre lies inside but for the corners of its box, which
// letters do not reach.
constexpr double kInside = 0.56;
constexpr std::size_t kMostTries = 60;
// How much of a label may lie on other countries where it cannot lie in its own, and beside an island.
constexpr double kMostForeign = 0.4;
constexpr double kMostForeignBeside = 0.05;
// In squares of the text's height: what is smaller waits until the places are named, and what is larger comes before
// them.
constexpr double kTiny = 1.0;
constexpr double kSizeable = 4.0;
// The boxes beside a box that are not at its corners.
constexpr long kSides = 4;
// Scripts from here on join their letters, or have none that could be spaced.
constexpr wchar_t kFirstJoinedScript = 0x0590;

bool IsSpaceable(const LabelText& label)
{
    const std::wstring text = label.text.toStdWString();
    return std::all_of(text.begin(), text.end(), [](wchar_t c) { return c < kFirstJoinedScript; });
}

bool BelongsTo(const BoxCover& cover) { return cover.foreign <= std::min(cover.home, kMostForeign); }

bool HasSize(const LabelExtent& extent) { return extent.width > 0.0 && extent.height > 0.0; }

/// The forms in which a name may be written.
std::vector<LabelText> FormsOf(const LabelText& text)
{
    std::vector<LabelText> forms = {text};
    if (LabelText lines = InTwoLines(text); !lines.text.isEmpty())
        forms.push_back(std::move(lines));
    return forms;
}

} // namespace

int LargestCountryName(const LabelStyle& style, double visibleSize)
{
    const double factor = std::pow(visibleSize / (kMediumCountry * style.size * style.size), kGrowth);
    return WholePixels(style.size * std::clamp(factor, style.smallest, style.largest));
}

CountryLabels::CountryLabels(const MapLayer& layer, const LabelScene& scene, LabelMeasure measure)
    : scene(scene), measure(std::move(measure)), areas(layer, scene.frame)
{
    for (const NamedFeature& feature : layer.areaNames)
        if (!areas.Shape(feature.index).IsEmpty())
            if (LabelText text = MakeLabelText(feature.name.text, scene.path); !text.text.isEmpty())
                waiting.push_back(
                    {feature.index, feature.name.rank, areas.Shape(feature.index).Size(), std::move(text)});
    std::stable_sort(waiting.begin(), waiting.end(),
                     [](const Country& a, const Country& b)
                     { return std::make_tuple(a.rank, -a.size) < std::make_tuple(b.rank, -b.size); });
}

LabelLook CountryLabels::LookOf(int size, const LabelText& text) const
{
    const LabelStyle& style = scene.style;
    LabelLook look{size, 0.0, style.country, style.countryHalo};
    const double above = size / style.size - kSpacedFrom;
    if (above > 0.0 && style.largest > kSpacedFrom && IsSpaceable(text))
        look.spacing = style.spacing * size * std::min(1.0, above / (style.largest - kSpacedFrom));
    return look;
}

int CountryLabels::SmallestSize() const { return WholePixels(scene.style.size * scene.style.smallest); }

int CountryLabels::LargestSize(double visibleSize) const { return LargestCountryName(scene.style, visibleSize); }

void CountryLabels::Write(LabelSpace& space)
{
    const double square = scene.style.size * scene.style.size;
    std::set<TXString> written;
    std::vector<Country> left;
    for (Country& country : waiting)
    {
        if (written.count(country.text.text) > 0)
            continue;
        if (WriteInside(country, space) || WriteAcross(country, Markers::Avoid, space) ||
            (country.size >= kSizeable * square && WriteAcross(country, Markers::Cover, space)) ||
            (country.size >= kTiny * square && WriteBeside(country, space)))
            written.insert(country.text.text);
        else
            left.push_back(std::move(country));
    }
    // A part that came first may have found no room where a later one did.
    waiting.clear();
    for (Country& country : left)
        if (written.count(country.text.text) == 0)
            waiting.push_back(std::move(country));
}

void CountryLabels::WriteTiny(LabelSpace& space, std::set<TXString> written) const
{
    for (const Country& country : waiting)
        if (written.count(country.text.text) == 0 && WriteBeside(country, space))
            written.insert(country.text.text);
}

bool CountryLabels::WriteInside(const Country& country, LabelSpace& space) const
{
    for (int size = LargestSize(country.size); size >= SmallestSize(); --size)
        if (WriteInside(country, size, space))
            return true;
    return false;
}

bool CountryLabels::WriteInside(const Country& country, int size, LabelSpace& space) const
{
    const VisibleShape& shape = areas.Shape(country.area);
    const LabelLook look = LookOf(size, country.text);
    for (const LabelText& text : FormsOf(country.text))
    {
        const LabelExtent extent = measure(text, look);
        if (!HasSize(extent) || extent.height > shape.LargestPart().Height())
            continue;
        std::size_t tries = 0;
        for (const InnerPoint& point : InnerPoints(shape, extent.width / extent.height))
        {
            if (point.room < kInside * extent.height || ++tries > kMostTries)
                break;
            if (space.Write(text, look, CentredBox(point.position, extent), Markers::Avoid))
                return true;
        }
    }
    return false;
}

bool CountryLabels::WriteAcross(const Country& country, Markers markers, LabelSpace& space) const
{
    const LabelLook look = LookOf(SmallestSize(), country.text);
    for (const LabelText& text : FormsOf(country.text))
    {
        const LabelExtent extent = measure(text, look);
        if (!HasSize(extent))
            continue;
        std::optional<TXRect> best;
        double smallestLoss = std::numeric_limits<double>::max();
        std::size_t tries = 0;
        for (const InnerPoint& point : InnerPoints(areas.Shape(country.area), extent.width / extent.height))
        {
            if (++tries > kMostTries || smallestLoss == 0.0)
                break;
            const TXRect box = CentredBox(point.position, extent);
            const double loss = space.LossAt(box);
            if (loss < smallestLoss && space.IsFree(box, markers) && BelongsTo(areas.CoverOf(box, country.area)))
            {
                best = box;
                smallestLoss = loss;
            }
        }
        if (best)
            return space.Write(text, look, *best, markers);
    }
    return false;
}

bool CountryLabels::WriteBeside(const Country& country, LabelSpace& space) const
{
    const LabelLook look = LookOf(SmallestSize(), country.text);
    const LabelExtent extent = measure(country.text, look);
    // What is no smaller than its name has room inside, or is too far from a name beside it.
    const TXRect& part = areas.Shape(country.area).LargestPart();
    if (!HasSize(extent) || part.Width() > extent.width || part.Height() > 2.0 * extent.height)
        return false;
    std::vector<TXRect> boxes = BoxesBeside(part, extent, space.Distance());
    // The corners of a larger box may be far from the country in it.
    if (part.Width() > extent.height || part.Height() > extent.height)
        boxes.resize(kSides);
    for (const TXRect& box : boxes)
        if (space.IsFree(box, Markers::Avoid) && areas.CoverOf(box, country.area).foreign <= kMostForeignBeside)
            return space.Write(country.text, look, box, Markers::Avoid);
    return false;
}

} // namespace txmap
