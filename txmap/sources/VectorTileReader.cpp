#include <txmap/sources/VectorTileReader.h>

#include <protozero/pbf_message.hpp>

#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <unordered_set>
#include <vector>

#include <txmap/sources/FeatureSetBuilder.h>
#include <txmap/sources/VectorTileGeometry.h>

namespace txmap
{
namespace
{

enum class TileField : protozero::pbf_tag_type
{
    Layers = 3
};
enum class LayerField : protozero::pbf_tag_type
{
    Name = 1,
    Features = 2,
    Keys = 3,
    Values = 4,
    Extent = 5,
    Version = 15
};
enum class FeatureField : protozero::pbf_tag_type
{
    Id = 1,
    Tags = 2,
    Type = 3,
    Geometry = 4
};
enum class ValueField : protozero::pbf_tag_type
{
    String = 1,
    Float = 2,
    Double = 3,
    Int = 4,
    Uint = 5,
    Sint = 6,
    Bool = 7
};

using protozero::data_view;
using protozero::pbf_wire_type;

[[noreturn]] void Fail(const std::string& reason) { throw std::runtime_error("is a broken vector tile: " + reason); }

template <class Field>
void Require(const protozero::pbf_message<Field>& message, pbf_wire_type type)
{
    if (message.wire_type() != type)
        Fail("a field has the wrong type");
}

Value ReadValue(data_view data)
{
    Value value;
    protozero::pbf_message<ValueField> message(data);
    while (message.next())
    {
        switch (message.tag())
        {
        case ValueField::String:
            Require(message, pbf_wire_type::length_delimited);
            value = message.get_string();
            break;
        case ValueField::Float:
            Require(message, pbf_wire_type::fixed32);
            value = static_cast<double>(message.get_float());
            break;
        case ValueField::Double:
            Require(message, pbf_wire_type::fixed64);
            value = message.get_double();
            break;
        case ValueField::Int:
            Require(message, pbf_wire_type::varint);
            value = static_cast<double>(message.get_int64());
            break;
        case ValueField::Uint:
            Require(message, pbf_wire_type::varint);
            value = static_cast<double>(message.get_uint64());
            break;
        case ValueField::Sint:
            Require(message, pbf_wire_type::varint);
            value = static_cast<double>(message.get_sint64());
            break;
        case ValueField::Bool:
            Require(message, pbf_wire_type::varint);
            value = message.get_bool();
            break;
        default:
            message.skip();
        }
    }
    return value;
}

/// The parts of a layer, found before any is looked into: attributes may stand behind the features that use them.
struct LayerParts
{
    std::string name;
    std::vector<data_view> features;
    std::vector<data_view> keys;
    std::vector<data_view> values;
    std::uint32_t extent = 4096;
    std::uint32_t version = 1;
};

LayerParts SplitLayer(data_view data)
{
    LayerParts parts;
    protozero::pbf_message<LayerField> message(data);
    while (message.next())
    {
        switch (message.tag())
        {
        case LayerField::Name:
            Require(message, pbf_wire_type::length_delimited);
            parts.name = message.get_string();
            break;
        case LayerField::Features:
            Require(message, pbf_wire_type::length_delimited);
            parts.features.push_back(message.get_view());
            break;
        case LayerField::Keys:
            Require(message, pbf_wire_type::length_delimited);
            parts.keys.push_back(message.get_view());
            break;
        case LayerField::Values:
            Require(message, pbf_wire_type::length_delimited);
            parts.values.push_back(message.get_view());
            break;
        case LayerField::Extent:
            Require(message, pbf_wire_type::varint);
            parts.extent = message.get_uint32();
            break;
        case LayerField::Version:
            Require(message, pbf_wire_type::varint);
            parts.version = message.get_uint32();
            break;
        default:
            message.skip();
        }
    }
    if (parts.name.empty())
        Fail("a layer has no name");
    if (parts.version != 1 && parts.version != 2)
        Fail("the layer " + parts.name + " has version " + std::to_string(parts.version));
    if (parts.extent == 0 || parts.extent > 1u << 30)
        Fail("the layer " + parts.name + " has an extent of " + std::to_string(parts.extent));
    return parts;
}

constexpr std::uint32_t kUnwanted = std::numeric_limits<std::uint32_t>::max();

/// Reads the features of one layer.
class LayerReader
{
public:
    LayerReader(const LayerParts& parts, const TileId& tile, const WantedTileLayer& wanted)
        : parts(parts), builder(*wanted.features),
          geometry(builder, {tile.Box().left, tile.Box().top}, std::ldexp(1.0, -tile.z) / parts.extent)
    {
        for (const data_view& key : parts.keys)
        {
            const std::string name(key.data(), key.size());
            const bool isWanted = !wanted.properties || wanted.properties->count(name) > 0;
            keyNumbers.push_back(isWanted ? builder.KeyNumber(name) : kUnwanted);
        }
        // A value is made when the first feature uses it.
        valueNumbers.resize(parts.values.size(), kUnwanted);
    }

    void Read()
    {
        for (const data_view& feature : parts.features)
            ReadFeature(feature);
    }

private:
    using Packed = protozero::iterator_range<protozero::const_varint_iterator<std::uint32_t>>;

    void ReadFeature(data_view data)
    {
        Value id;
        Packed tags, commands;
        std::int32_t type = 0;
        protozero::pbf_message<FeatureField> message(data);
        while (message.next())
        {
            switch (message.tag())
            {
            case FeatureField::Id:
                Require(message, pbf_wire_type::varint);
                id = static_cast<double>(message.get_uint64());
                break;
            case FeatureField::Tags:
                Require(message, pbf_wire_type::length_delimited);
                tags = message.get_packed_uint32();
                break;
            case FeatureField::Type:
                Require(message, pbf_wire_type::varint);
                type = message.get_enum();
                break;
            case FeatureField::Geometry:
                Require(message, pbf_wire_type::length_delimited);
                commands = message.get_packed_uint32();
                break;
            default:
                message.skip();
            }
        }
        // Type 0 is for extensions that nobody is bound to know.
        if (type == 0)
            return;
        if (type < 0 || type > 3)
            Fail("a feature is of type " + std::to_string(type));
        constexpr GeometryType kTypes[] = {GeometryType::Point, GeometryType::LineString, GeometryType::Polygon};
        builder.Begin(kTypes[type - 1], std::move(id));
        ReadTags(tags);
        geometry.Read(kTypes[type - 1], commands);
        builder.End();
    }

    void ReadTags(const Packed& tags)
    {
        auto tag = tags.begin();
        while (tag != tags.end())
        {
            const std::uint32_t key = *tag++;
            if (tag == tags.end())
                Fail("an attribute has no value");
            const std::uint32_t value = *tag++;
            if (key >= keyNumbers.size() || value >= valueNumbers.size())
                Fail("a feature has an attribute that is not there");
            if (keyNumbers[key] == kUnwanted)
                continue;
            if (valueNumbers[value] == kUnwanted)
                valueNumbers[value] = builder.ValueNumber(ReadValue(parts.values[value]));
            builder.AddTag(keyNumbers[key], valueNumbers[value]);
        }
    }

    const LayerParts& parts;
    FeatureSetBuilder builder;
    VectorTileGeometry geometry;
    std::vector<std::uint32_t> keyNumbers;   ///< Of each key of the tile, in the set.
    std::vector<std::uint32_t> valueNumbers; ///< Of each value of the tile, in the set.
};

void ReadLayers(std::string_view data, const TileId& tile, const std::vector<WantedTileLayer>& layers)
{
    std::unordered_set<std::string> names;
    protozero::pbf_message<TileField> message(data.data(), data.size());
    while (message.next())
    {
        if (message.tag() != TileField::Layers)
        {
            message.skip();
            continue;
        }
        Require(message, pbf_wire_type::length_delimited);
        const LayerParts parts = SplitLayer(message.get_view());
        if (!names.insert(parts.name).second)
            Fail("two layers are called " + parts.name);
        for (const WantedTileLayer& wanted : layers)
            if (wanted.name == parts.name)
                LayerReader(parts, tile, wanted).Read();
    }
}

} // namespace

void ReadVectorTile(std::string_view data, const TileId& tile, const std::vector<WantedTileLayer>& layers)
{
    try
    {
        ReadLayers(data, tile, layers);
    }
    catch (const protozero::end_of_buffer_exception&)
    {
        Fail("it ends too early");
    }
    catch (const protozero::exception& problem)
    {
        Fail(problem.what());
    }
}

} // namespace txmap
