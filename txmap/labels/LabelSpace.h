#pragma once

#include <utility>
#include <vector>

#include <boost/geometry/geometries/box.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/index/rtree.hpp>

#include <txmap/labels/LabelPlacer.h>
#include <txmap/labels/LabelScene.h>
#include <txmap/labels/PlacedLabel.h>
#include <txmap/map/MapLayer.h>

namespace txmap
{

/// A place with a name.
struct Place
{
    LayerPlace index;
    const FeatureName* name = nullptr;
    LabelText text;
    TZObjects::TXRect marker;
    bool waiting = true; ///< False once it is named or left out.
};

/// Whether a label may lie on markers of places that wait for their name, and so drive those places off the map.
enum class Markers
{
    Avoid,
    Cover
};

/// The map as labels fill it: what is written, and which places still wait for their names.
class LabelSpace
{
public:
    /// Both must outlive the space.
    LabelSpace(const std::vector<MapLayer>& layers, const LabelScene& scene);

    /// True when a label has room, its halo included.
    bool IsFree(const TZObjects::TXRect& box, Markers markers) const;
    /// Writes a label if it has room. @return whether it has.
    bool Write(const LabelText& text, const LabelLook& look, const TZObjects::TXRect& box, Markers markers);
    /// Writes a place's name if it has room. @return whether it has.
    bool Write(Place& place, const LabelLook& look, const TZObjects::TXRect& box, Markers markers);
    /// How great a loss the waiting places are that a label would drive off the map; 0 for none.
    double LossAt(const TZObjects::TXRect& box) const;
    /// True when a place goes without saying: one of the same name is named close by, or one with many times its
    /// people.
    bool GoesWithoutSaying(const Place& place) const;
    /// Takes a place off the map.
    void LeaveOut(Place& place);

    /// The places that have a name and are visible, the most important first.
    std::vector<Place>& Places() { return places; }
    /// How far from a marker or an area a label begins.
    double Distance() const;
    /// Hands over the labels that are written.
    std::vector<PlacedLabel> TakeLabels() { return std::move(labels); }
    /// Hands over the places that must not be drawn, as their names have no room.
    std::vector<LayerPlace> TakeLeftOut() { return std::move(leftOut); }

private:
    using Corner = boost::geometry::model::d2::point_xy<double>;
    using Box = boost::geometry::model::box<Corner>;
    using Entry = std::pair<Box, std::size_t>;
    using Index = boost::geometry::index::rtree<Entry, boost::geometry::index::quadratic<16>>;

    std::vector<std::size_t> CoveredBy(const TZObjects::TXRect& box) const;
    /// Writes a label that has room, and leaves out the places that it covers.
    void Put(const LabelText& text, const LabelLook& look, const TZObjects::TXRect& box,
             const std::vector<std::size_t>& covered);
    void AddPlaces(const MapLayer& layer, std::size_t number);
    bool IsVisible(const TZObjects::TXRect& marker) const;

    const LabelScene& scene;
    double padding;      ///< Around every label and marker, so that no halo reaches its neighbour.
    LabelPlacer all;     ///< Labels and markers.
    LabelPlacer lasting; ///< The same without the markers of waiting places.
    std::vector<Place> places;
    Index waiting; ///< The markers of the places, with what stays free around them.
    Index named;   ///< The places that have their names.
    std::vector<PlacedLabel> labels;
    std::vector<LayerPlace> leftOut;
};

/// A box of a size about a point.
TZObjects::TXRect CentredBox(const TZObjects::TXPoint& centre, const LabelExtent& extent);

/// The boxes beside a box, in the order in which a map maker tries them: right, left, above, below, then at its
/// corners.
std::vector<TZObjects::TXRect> BoxesBeside(const TZObjects::TXRect& inner, const LabelExtent& extent, double distance);

} // namespace txmap
