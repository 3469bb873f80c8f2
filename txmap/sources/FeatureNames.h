#pragma once

#include <string>

#include <txmap/map/MapLayer.h>

class OGRFeature;
class OGRLayer;

namespace txmap
{

/// Which names are read.
struct NameRequest
{
    bool wanted = false;
    std::string field; ///< The attribute that holds the names; empty for what each layer offers.
};

/// Takes the names of features, and what says how much they matter, from the attributes of one layer after another.
class FeatureNames
{
public:
    explicit FeatureNames(const NameRequest& request) : request(request) {}

    /// Turns to another layer.
    void Open(OGRLayer& layer, LayerRole role);
    /// The name of a feature of that layer; none where it has none, or no names are wanted.
    FeatureName Of(const OGRFeature& feature) const;
    /// True when names are wanted and no layer had the attribute that holds them. A layer without features and
    /// attributes gives the benefit of the doubt.
    bool AreMissing() const { return request.wanted && !found; }

private:
    /// The indices of attributes; -1 for none.
    struct Fields
    {
        int name = -1;
        int capital = -1;
        int rank = -1;
        int population = -1;
    };

    NameRequest request;
    Fields fields;
    bool found = false;
};

/// The message for names that no layer has.
std::string MissingNames(const NameRequest& request);

} // namespace txmap
