#pragma once

namespace txmap
{

/// What draws the labels.
enum class TextPath
{
    Qt,   ///< Formats what is between label tags, and takes other faces for characters that one lacks.
    Cairo ///< Draws letter by letter, in one face.
};

} // namespace txmap
