#include <txmap/sources/Sprites.h>

#include <cmath>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include <txmap/sources/ImageDecoder.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

constexpr std::size_t kLargestFile = std::size_t(64) << 20;
constexpr int kLongestSide = 16384;

double NumberIn(const Json& json, const char* name, double fallback)
{
    const auto found = json.find(name);
    return found != json.end() && found->is_number() ? found->get<double>() : fallback;
}

bool Exists(const std::string& path)
{
    std::error_code status;
    return std::filesystem::is_regular_file(path, status);
}

/// Numbers of an array; nothing if it is not one of so many numbers.
template <std::size_t N>
std::optional<std::array<double, N>> NumbersIn(const Json& json)
{
    std::array<double, N> numbers{};
    if (!json.is_array() || json.size() != N)
        return std::nullopt;
    for (std::size_t i = 0; i < N; ++i)
    {
        if (!json[i].is_number())
            return std::nullopt;
        numbers[i] = json[i].template get<double>();
    }
    return numbers;
}

/// @throw std::runtime_error where parts overlap or lie outside of the picture.
std::vector<SpriteStretch> StretchIn(const Json& place, const char* name, double length)
{
    std::vector<SpriteStretch> stretch;
    const auto found = place.find(name);
    if (found == place.end() || !found->is_array())
        return stretch;
    for (const Json& item : *found)
    {
        const auto part = NumbersIn<2>(item);
        const double before = stretch.empty() ? 0.0 : stretch.back().to;
        if (!part || !((*part)[0] >= before && (*part)[1] > (*part)[0] && (*part)[1] <= length))
            throw std::runtime_error(std::string("has a wrong ") + name);
        stretch.push_back({(*part)[0], (*part)[1]});
    }
    return stretch;
}

TextFit FitIn(const Json& place, const char* name)
{
    const Json fit = place.value(name, Json());
    return fit == "stretchOnly" ? TextFit::StretchOnly
                                : (fit == "proportional" ? TextFit::Proportional : TextFit::StretchOrShrink);
}

/// What a picture says about texts that it is laid around. @throw std::runtime_error for what lies outside of it.
void ReadShape(const Json& place, SpritePicture& picture)
{
    const double width = picture.pixels.size.width;
    const double height = picture.pixels.size.height;
    picture.stretchX = StretchIn(place, "stretchX", width);
    picture.stretchY = StretchIn(place, "stretchY", height);
    picture.fitWidth = FitIn(place, "textFitWidth");
    picture.fitHeight = FitIn(place, "textFitHeight");
    picture.content = NumbersIn<4>(place.value("content", Json()));
    if (picture.content)
    {
        const auto& [left, top, right, bottom] = *picture.content;
        if (!(left >= 0.0 && top >= 0.0 && right > left && bottom > top && right <= width && bottom <= height))
            throw std::runtime_error("has a wrong content");
    }
}

/// The part of a sprite that a picture is. @throw std::runtime_error where there is no such part.
SpritePicture CutOut(const Raster& sprite, const Json& place)
{
    const double x = NumberIn(place, "x", -1.0);
    const double y = NumberIn(place, "y", -1.0);
    const double width = NumberIn(place, "width", 0.0);
    const double height = NumberIn(place, "height", 0.0);
    const double ratio = NumberIn(place, "pixelRatio", 1.0);
    if (!(x >= 0.0 && y >= 0.0 && width >= 1.0 && height >= 1.0 && x + width <= sprite.size.width &&
          y + height <= sprite.size.height && ratio > 0.0 && ratio <= 100.0))
        throw std::runtime_error("lies outside of the picture");
    SpritePicture picture;
    picture.ratio = ratio;
    picture.isDistanceField = place.value("sdf", Json()) == true;
    picture.pixels.size = {static_cast<int>(width), static_cast<int>(height)};
    const auto stride = static_cast<std::size_t>(sprite.size.width);
    for (int row = 0; row < picture.pixels.size.height; ++row)
    {
        const auto first =
            sprite.pixels.begin() +
            static_cast<std::ptrdiff_t>((static_cast<std::size_t>(y) + static_cast<std::size_t>(row)) * stride +
                                        static_cast<std::size_t>(x));
        picture.pixels.pixels.insert(picture.pixels.pixels.end(), first, first + picture.pixels.size.width);
    }
    ReadShape(place, picture);
    return picture;
}

} // namespace

Sprites::Sprites(const std::vector<StyleSprite>& sprites, const SourceFolder& folder, double scale,
                 SourceDiagnostics& diagnostics)
{
    for (const StyleSprite& sprite : sprites)
    {
        try
        {
            Read(sprite, folder, scale, diagnostics);
        }
        catch (const Failure& failure)
        {
            diagnostics.Report(failure.what());
        }
    }
    for (const auto& picture : pictures)
        names.insert(picture.first);
}

void Sprites::Read(const StyleSprite& sprite, const SourceFolder& folder, double scale, SourceDiagnostics& diagnostics)
{
    const std::string path = folder.PathOf(sprite.address);
    const std::string dense = path + "@2x";
    const std::string base = scale > 1.0 && Exists(dense + ".json") && Exists(dense + ".png") ? dense : path;
    const std::string prefix = sprite.id == "default" ? "" : sprite.id + ":";
    try
    {
        const Json index = Json::parse(ReadSourceFile(base + ".json", kLargestFile));
        if (!index.is_object())
            throw std::runtime_error("no object of pictures");
        const Raster pixels = DecodeImage(ReadSourceFile(base + ".png", kLargestFile), kLongestSide);
        for (const auto& [name, place] : index.items())
        {
            try
            {
                pictures.emplace(prefix + name, CutOut(pixels, place.is_object() ? place : Json::object()));
            }
            catch (const std::runtime_error& error)
            {
                diagnostics.Report("sprite " + base + ": picture \"" + name + "\" " + error.what());
            }
        }
    }
    catch (const Failure&)
    {
        throw;
    }
    catch (const std::exception& error)
    {
        throw Failure(ExitCode::Data, "sprite " + base + ": " + error.what());
    }
}

const SpritePicture* Sprites::Find(const std::string& name) const
{
    const auto found = pictures.find(name);
    return found == pictures.end() ? nullptr : &found->second;
}

} // namespace txmap
