#include <txmap/atlas/LegendEntries.h>

#include <cmath>

#include <txmap/atlas/AtlasSources.h>
#include <txmap/atlas/SourceColors.h>
#include <txmap/drawing/layers/MapCanvas.h>
#include <txmap/style/Style.h>

namespace txmap
{
namespace
{

using Kind = LegendEntry::Kind;

constexpr std::size_t kMostValues = 16;
constexpr int kRampSteps = 5;

/// A number with three digits that count.
double Rounded(double number)
{
    if (number == 0.0 || !std::isfinite(number))
        return number;
    const double unit = std::pow(10.0, std::floor(std::log10(std::abs(number))) - 2.0);
    return std::round(number / unit) * unit;
}

void AddRamp(const ColorRamp& ramp, const RampRange& range, std::vector<LegendEntry>& entries)
{
    for (int step = kRampSteps - 1; step >= 0; --step)
    {
        const double part = step / (kRampSteps - 1.0);
        const double number = range.isLogarithmic ? range.low * std::pow(range.high / range.low, part)
                                                  : range.low + (range.high - range.low) * part;
        const Color color = Color::Mix(ramp.low, ramp.high, part, ColorSpace::Rgb);
        entries.push_back({Kind::Area, ToTXColor(color), NumberText(Rounded(number))});
    }
}

} // namespace

std::vector<LegendEntry> LegendEntries(const AtlasOptions& options, const Style& style, const AtlasSources& sources,
                                       const std::map<std::string, SourceColors>& colors)
{
    std::vector<LegendEntry> entries;
    for (const AtlasSource& source : sources.Features())
    {
        if (const auto found = colors.find(source.id); found != colors.end())
        {
            if (options.ramp)
                AddRamp(*options.ramp, found->second.range, entries);
            else if (!options.colorBy.empty())
                for (const auto& [value, category] : found->second.areas.classes)
                    if (entries.size() < kMostValues)
                        entries.push_back({Kind::Area, style.Fill(category), value});
        }
        if (source.role == LayerRole::Lakes)
            entries.push_back({Kind::Area, style.lake, source.id});
        if (source.role == LayerRole::Borders)
            entries.push_back({Kind::Line, style.border.color, source.id});
        if (source.role == LayerRole::Lines || (source.role == LayerRole::Any && source.Has(GeometryType::LineString)))
            entries.push_back({Kind::Line, style.river.color, source.id});
        if (source.role == LayerRole::Any && source.Has(GeometryType::Point))
            entries.push_back({Kind::Place, {}, source.id});
    }
    return entries;
}

} // namespace txmap
