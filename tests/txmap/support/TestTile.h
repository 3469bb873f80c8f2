#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

/// A vector tile to be written, by other means than those it is read with.
struct TestTile
{
    struct Feature
    {
        int type = 1; ///< 1 point, 2 line, 3 polygon.
        std::vector<std::uint32_t> geometry = {};
        std::vector<std::uint32_t> tags = {};
        std::uint64_t id = 0; ///< 0 for none.
    };
    struct Layer
    {
        std::string name = {};
        std::vector<Feature> features = {};
        std::vector<std::string> keys = {};
        std::vector<std::string> values = {}; ///< Encoded by one of the functions below.
        std::uint32_t extent = 4096;
        std::uint32_t version = 2;
    };
    std::vector<Layer> layers;

    /// The bytes of the tile.
    std::string Encoded() const;

    static std::string Text(const std::string& value);
    static std::string Number(double value);
    static std::string Float(float value);
    static std::string Int(std::int64_t value);
    static std::string Sint(std::int64_t value);
    static std::string Uint(std::uint64_t value);
    static std::string Bool(bool value);

    /// Parts of points as commands, each from its first point on; closed or not.
    using Part = std::vector<std::pair<int, int>>;
    static std::vector<std::uint32_t> Points(const Part& points);
    static std::vector<std::uint32_t> Lines(const std::vector<Part>& parts, bool closed = false);
};

/// Data as gzip packs it.
std::string Gzipped(const std::string& data);

/// Makes an MBTiles file of tiles, given by zoom, column, row from the north, and bytes. @param metadata names and
/// values.
struct StoredTile
{
    int z = 0;
    int x = 0;
    int y = 0;
    std::string data;
};
void WriteMbTiles(const std::string& file, const std::vector<StoredTile>& tiles,
                  const std::vector<std::pair<std::string, std::string>>& metadata = {});

/// Runs statements on a new database.
void WriteDatabase(const std::string& file, const std::string& statements);
