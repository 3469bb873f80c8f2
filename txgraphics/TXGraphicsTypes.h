#pragma once

#include <cstdint>

#include <txbase/TXColor.h>
#include <txgraphics/Export.h>

namespace TZObjects
{

/// @page labels Labels
///
/// `TXGraphics::DrawString`, `TXGraphics::DrawOutlineString` and `TXGraphics::DrawVerticalString` draw labels. "\n"
/// separates the lines of a label. In a vertical label each line is a column, and each UTF-16 unit a character of it.
///
/// **Tags** format a part of a label, up to the closing tag such as `</BOL>`. A tag is written in capitals or in small
/// letters; in mixed case it is plain text.
///
/// | tag     | the part is shown    |
/// |---------|----------------------|
/// | `<BOL>` | bold, of weight 700  |
/// | `<ITA>` | in italics           |
/// | `<UND>` | underlined           |
/// | `<ACP>` | in all capitals      |
/// | `<SCP>` | in all small letters |
///
/// The operation and the text path decide what becomes of a tag:
///
/// | operation                                             | through Qt            | through cairo            |
/// |-------------------------------------------------------|-----------------------|--------------------------|
/// | `DrawString`                                          | formats               | is drawn as it stands    |
/// | outline and vertical labels at (left, top)            | is dropped            | is drawn as it stands    |
/// | outline and vertical labels at (x, y)                 | is drawn as it stands | is drawn as it stands    |
/// | `TXFont::GetTextExtent`, `TXFont::GetMultiTextExtent` | formats               | is measured as it stands |
///
/// **Rich labels.** Qt takes a label for HTML when the first tag in its first line is one of HTML, as all tags above
/// are for Qt, or when that line has the escape that HTML writes for "<". Such a label is rich, every other one is
/// plain. In a rich label all HTML counts, but no file or address that it names is opened. In a stranger's text escape
/// every "<" that begins no tag above: some HTML costs Qt more time than a map has.
///
/// **Text paths.** The two paths draw the same label differently:
/// - Position: through Qt in surface units; through cairo in pixels of the selected image, whatever the origin is.
/// - Clip: through Qt the clip region; through cairo the regions that were set with a colour.
/// - Opacity and composition mode: through Qt only.
/// - Text colour, where the call has none: through Qt the pen's as it was selected, black with `TXPen::NullPen`;
///   through cairo the selected pen's at the moment, black without one.
/// - Rotation and scaling, where the call has no centre: through cairo about the label's top left. Through Qt about the
///   middle, except that a rich label is rotated about its top left.
/// - Letters: Qt joins scripts such as Arabic, and takes other faces for characters that one lacks. cairo draws letter
///   by letter, from left to right, in one face, with a box for what it lacks.
/// - Halo: outline labels have one. Vertical labels have one on request; through cairo the font's halo must be on, too.
///   `DrawString` draws one through cairo only, when the font's halo is on.
/// - Width of the halo: through Qt the scale multiplies it, through cairo it does not.
///
/// Labels through cairo need a selected image of 32 bits a pixel, up to 32,767 pixels wide and high:
/// `TXGraphics::SelectImage` or `TXGraphics::CreateCompatibleGraphics` selects one. They never use an attached painter.

/// The enumerations and parameters of `TXGraphics`, which inherits them.
struct TXGRAPHICS_API TXGraphicsTypes
{
    /// Vertical alignment of a label. Labels through Qt ignore it; through cairo vertical labels alone read it.
    enum TXTextVertAlign : int
    {
        TextAlignTop = 1,     ///< Top. Columns through cairo: shorter ones are centred against the tallest.
        TextAlignVCenter = 2, ///< Middle. Columns through cairo: their tops meet.
        TextAlignBottom = 3   ///< Bottom. Columns through cairo: shorter ones are centred against the tallest.
    };

    /// Alignment of a label's lines against its widest line. Vertical labels through Qt align columns with it.
    enum TXTextHorizAlign : int
    {
        TextAlignLeft = 1,    ///< Left edges meet. Columns: their tops meet.
        TextAlignHCenter = 2, ///< Lines are centred. Columns are centred against the longest.
        TextAlignRight = 3    ///< Right edges meet. Columns: their ends meet.
    };

    /// How drawn pixels (the source) combine with those that are there (the destination). The blend modes are those of
    /// the PDF imaging model. The raster operations work on the bits of the pixels.
    enum TXCompositionMode : int
    {
        CompositionMode_SourceOver = 0,           ///< Source over destination; the usual mode.
        CompositionMode_DestinationOver = 1,      ///< Destination over source.
        CompositionMode_Clear = 2,                ///< Transparent.
        CompositionMode_Source = 3,               ///< Source alone.
        CompositionMode_Destination = 4,          ///< Destination alone: nothing changes.
        CompositionMode_SourceIn = 5,             ///< Source where the destination is.
        CompositionMode_DestinationIn = 6,        ///< Destination where the source is.
        CompositionMode_SourceOut = 7,            ///< Source where the destination is not.
        CompositionMode_DestinationOut = 8,       ///< Destination where the source is not.
        CompositionMode_SourceAtop = 9,           ///< Source over destination, with the destination's alpha.
        CompositionMode_DestinationAtop = 10,     ///< Destination over source, with the source's alpha.
        CompositionMode_Xor = 11,                 ///< Each where the other is not.
        CompositionMode_Plus = 12,                ///< Sum of both.
        CompositionMode_Multiply = 13,            ///< Product of both: darker.
        CompositionMode_Screen = 14,              ///< Product of the inverses, inverted: lighter.
        CompositionMode_Overlay = 15,             ///< Multiplies or screens, depending on the destination.
        CompositionMode_Darken = 16,              ///< The darker of both.
        CompositionMode_Lighten = 17,             ///< The lighter of both.
        CompositionMode_ColorDodge = 18,          ///< Brightens the destination to reflect the source.
        CompositionMode_ColorBurn = 19,           ///< Darkens the destination to reflect the source.
        CompositionMode_HardLight = 20,           ///< Multiplies or screens, depending on the source.
        CompositionMode_SoftLight = 21,           ///< Darkens or lightens, depending on the source.
        CompositionMode_Difference = 22,          ///< The lighter minus the darker.
        CompositionMode_Exclusion = 23,           ///< Like the difference, with lower contrast.
        RasterOp_SourceOrDestination = 24,        ///< source | destination.
        RasterOp_SourceAndDestination = 25,       ///< source & destination.
        RasterOp_SourceXorDestination = 26,       ///< source ^ destination.
        RasterOp_NotSourceAndNotDestination = 27, ///< ~source & ~destination.
        RasterOp_NotSourceOrNotDestination = 28,  ///< ~source | ~destination.
        RasterOp_NotSourceXorDestination = 29,    ///< ~source ^ destination.
        RasterOp_NotSource = 30,                  ///< ~source.
        RasterOp_NotSourceAndDestination = 31,    ///< ~source & destination.
        RasterOp_SourceAndNotDestination = 32,    ///< source & ~destination.
        RasterOp_NotSourceOrDestination = 33,     ///< ~source | destination.
        RasterOp_SourceOrNotDestination = 34,     ///< source | ~destination.
        RasterOp_ClearDestination = 35,           ///< All bits 0.
        RasterOp_SetDestination = 36,             ///< All bits 1.
        RasterOp_NotDestination = 37              ///< ~destination.
    };

    /// A gradient over the bounding rectangle of a filled shape.
    struct stGradientParams
    {
        std::int32_t type = 0; ///< 0 linear, 1 radial, 2 conical; any other number fills nothing.
        TXColor startColor;    ///< The colour at position 0.
        TXColor endColor;      ///< The colour at position 1.
        double angle = 0.0;    ///< Linear: the direction in degrees, clockwise from the x axis.
        double middle = 50.0;  ///< Linear: the position, in percent, of the mean colour, which is always opaque.
    };
};

} // namespace TZObjects
