#pragma once

#include <set>
#include <vector>

#include <txmap/labels/AreaNeighbours.h>
#include <txmap/labels/LabelSpace.h>

namespace txmap
{

/// The height of the text of a country's name where there is room for it, in whole pixels.
/// @param visibleSize what is visible of the country, in square pixels.
int LargestCountryName(const LabelStyle& style, double visibleSize);

/// Writes the names of the areas of one layer.
class CountryLabels
{
public:
    /// All but the text measure must outlive this.
    CountryLabels(const MapLayer& layer, const LabelScene& scene, LabelMeasure measure);

    /// Writes those names that have room in their countries or, where these are not tiny, beside them. A name that does
    /// not fit into its country may reach out of it, so long as nobody would take it for a neighbour's.
    void Write(LabelSpace& space);
    /// Writes the names of tiny islands beside them, but for those that are written already.
    void WriteTiny(LabelSpace& space, std::set<TZObjects::TXString> written) const;

private:
    struct Country
    {
        std::size_t area = 0;
        double rank = 0.0;
        double size = 0.0; ///< Of what is visible of it.
        LabelText text;
    };

    bool WriteInside(const Country& country, LabelSpace& space) const;
    bool WriteInside(const Country& country, int size, LabelSpace& space) const;
    bool WriteAcross(const Country& country, Markers markers, LabelSpace& space) const;
    bool WriteBeside(const Country& country, LabelSpace& space) const;
    LabelLook LookOf(int size, const LabelText& text) const;
    int LargestSize(double visibleSize) const;
    int SmallestSize() const;

    const LabelScene& scene;
    LabelMeasure measure;
    AreaNeighbours areas;
    std::vector<Country> waiting; ///< The most important first.
};

} // namespace txmap
