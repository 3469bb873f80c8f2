#pragma once

#include <string>

#include <nlohmann/json.hpp>
#include <txmap/sources/FeatureSource.h>
#include <txmap/sources/MapLayerReader.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>

/// Loads what lies in a view of a file, with all attributes.
inline std::unique_ptr<txmap::FeatureSource> LoadedSource(const std::string& file, const txmap::MapView& view,
                                                          std::optional<txmap::GeometryType> geometry = {})
{
    txmap::SourceDiagnostics diagnostics(true);
    auto source = txmap::MakeFeatureSource("data", {{"type", "geojson"}, {"data", file}}, txmap::SourceFolder(""));
    txmap::FeatureRequest request;
    request.layers[""] = std::nullopt;
    request.margin = 32.0;
    request.joinsAtDateLine = true;
    request.geometry = geometry;
    source->Load(view, request, diagnostics);
    return source;
}

/// The areas and places of a file in pixels.
inline txmap::MapLayer LoadedLayer(const std::string& file, const txmap::MapView& view,
                                   const txmap::NameRequest& names = {})
{
    return txmap::ReadMapLayer(LoadedSource(file, view)->Features(""), view, names, true, 32.0);
}
