#pragma once

#include <string>
#include <vector>

#include <txmap/sources/FeatureSetBuilder.h>
#include <txmap/style/Expression.h>

namespace txmap
{

/// An attribute that a cluster gets of its points.
struct ClusterProperty
{
    std::string name;
    Expression map;    ///< Gives a point's share.
    Expression reduce; ///< Joins what is accumulated with a share, which it reads as an attribute of that name.
};

/// How points that lie close together are drawn as one.
struct ClusterOptions
{
    double radius = 50.0; ///< In logical pixels.
    int maxZoom = 17;     ///< Beyond this zoom every point stands for itself.
    int minPoints = 2;    ///< Fewer than this make no cluster.
    std::vector<ClusterProperty> properties;

    /// Reads the members `cluster…` and `maxzoom` of a source. @param name of the source, for messages.
    /// @throw Failure with `ExitCode::Data` if `clusterProperties` do not compile.
    static ClusterOptions FromSource(const std::string& name, const Json& source);
    /// The attributes that the points must have for all this.
    UsedProperties Used() const;
};

/// Adds the clusters and the single points that a zoom shows. From the greatest zoom down, each point in turn gathers
/// what lies within the radius, as web maps do; so clusters of one zoom gather those of the next. Clusters have the
/// attributes `cluster`, `cluster_id`, `point_count` and `point_count_abbreviated`, and their own. Features other than
/// points are left out.
void AddClusters(const FeatureSet& points, const ClusterOptions& options, int zoom, FeatureSetBuilder& builder);

} // namespace txmap
