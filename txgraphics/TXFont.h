#pragma once

#include <txbase/TXColor.h>
#include <txbase/TXRefBase.h>
#include <txbase/TXString.h>
#include <txgraphics/Export.h>

namespace TZObjects
{

/// The font of labels and font markers. It also holds the attributes with which labels are drawn, and measures texts.
///
/// A font is empty until `Create`. On an empty font the setters of face, height, weight, italics, underline, strike-out
/// and spacing do nothing, and getters return neutral values. The other attributes (width, angles, halo, shadow) are
/// kept apart: they can be set at any time and survive `Create` and `Delete`.
///
/// **Changes after selection.** A surface reads the selected font at different times:
/// - Plain labels through Qt read all of it whenever they are drawn.
/// - Rich labels through Qt, see @ref labels, use the font as it was in `TXGraphics::SelectFont`.
/// - Labels through cairo read height, spacing, halo and rules whenever they are drawn. They use face, weight and
///   italics as they were in `TXGraphics::SelectFont`: after `SetFontName`, select the font again.
///
/// **Measuring.** Every measuring operation has a flag `useQt`. With it the operation measures a text as Qt draws it,
/// without it as cairo does, in pixels at scale 1. To measure for cairo, a font needs the switch
/// `TXGraphicsEngineManager::EnableCairoDrawing` to be on while its `Create` runs. It then takes face, weight and
/// italics over when `SetFontName` is called: set the name after them.
class TXGRAPHICS_API TXFont : public TXRefBase
{
public:
    /// How italics are made.
    enum TXItalicMode : int
    {
        ItalicNone = 0, ///< Upright.
        ItalicFace = 1, ///< The italic face.
        ItalicSlant = 2 ///< Lines through Qt slant the upright face; cairo takes the italic face.
    };

    TXFont();
    ~TXFont() override;

    /// Makes the backend's default font anew. Set a height next: the default one is in points, `GetFontHeight` returns
    /// -1 for it, and labels through cairo are a tenth of a pixel high with it.
    /// @return true, also when memory is short; the font is empty then.
    virtual bool Create() = 0;
    /// Empties the font.
    virtual void Delete() = 0;

    /// Stores a width. Nothing draws with it. A number below 1 changes nothing.
    virtual void SetFontWidth(int width) = 0;
    /// Returns the stored width; until one is set, the height that the font had when it was made.
    virtual int GetFontWidth() const = 0;
    /// Sets the height of the em in pixels. A number below 1 changes nothing; one above 40,000 gives 40,000.
    virtual void SetFontHeight(int height) = 0;
    /// Returns the height in pixels; -1 until one is set, 0 for an empty font.
    virtual int GetFontHeight() const = 0;
    /// Sets the weight.
    /// @param weight from 100 to 900, raised to the next hundred; 400 is normal, 700 bold. A greater number gives 900,
    /// one below 1 changes nothing.
    virtual void SetFontWeight(int weight) = 0;
    /// Returns the weight, a hundred from 100 to 900; 0 for an empty font.
    virtual int GetFontWeight() const = 0;
    /// Stores the angle of the labels that get none with the call: in degrees, clockwise.
    virtual void SetFontAngle(int angle) = 0;
    /// Returns the stored angle; 0 until one is set.
    virtual int GetFontAngle() const = 0;
    /// Sets weight 700, or 400 for false.
    virtual void SetFontBold(bool bold) = 0;
    /// Returns true for a weight above 500.
    virtual bool GetFontBold() const = 0;
    /// Switches italics off or on. Switched on, they use the italic face, unless the mode is `ItalicSlant`, which
    /// stays.
    virtual void SetFontItalic(bool italic) = 0;
    /// Returns true for an italic face and for `ItalicSlant`.
    virtual bool GetFontItalic() const = 0;
    /// Sets how italics are made. Only `ItalicFace` changes the face.
    virtual void SetFontItalicMode(TXItalicMode mode) = 0;
    /// Returns how italics are made.
    virtual TXItalicMode GetFontItalicMode();
    /// Stores an angle of italics in degrees. Nothing draws with it.
    virtual void SetFontItalicAngle(int angle) = 0;
    /// Returns the stored angle of italics; 0 until one is set.
    virtual int GetFontItalicAngle() const = 0;
    /// Switches the rule below the text.
    virtual void SetFontUnderline(bool underline) = 0;
    /// Returns true when there is a rule below the text.
    virtual bool GetFontUnderline() const = 0;
    /// Switches the rule through the text.
    virtual void SetFontStrikeOut(bool strikeOut) = 0;
    /// Returns true when there is a rule through the text.
    virtual bool GetFontStrikeOut() const = 0;
    /// Switches the halo of labels through cairo. Which labels have a halo through Qt is up to the drawing operation.
    virtual void SetFontHalo(bool halo) = 0;
    /// Returns true when the halo is on; false until it is switched on.
    virtual bool GetFontHalo() const = 0;
    /// Sets the width of the stroke that makes the halo, in pixels: half of it reaches beyond the letters. A number
    /// below 1 gives 1.
    virtual void SetFontHaloWidth(int width) = 0;
    /// Returns the width of the halo's stroke; 1 until one is set.
    virtual int GetFontHaloWidth() const = 0;
    /// Sets the colour of the halo. Labels draw it opaque, whatever its alpha.
    virtual void SetFontHaloColor(TXColor color) = 0;
    /// Returns the colour of the halo, alpha included; opaque black until one is set.
    virtual TXColor GetFontHaloColor() const = 0;
    /// Stores whether labels have a shadow. Nothing draws one.
    virtual void SetFontShadow(bool shadow) = 0;
    /// Returns the stored switch; false until it is set.
    virtual bool GetFontShadow() const = 0;
    /// Sets the face.
    /// @param name the name of the face. A localised name in `GetEnglishNameForKnownFont` becomes the English one. The
    /// empty name changes nothing.
    virtual void SetFontName(TXString name) = 0;
    /// Returns the name of the face, in English where it is known.
    virtual TXString GetFontName() const = 0;

    /// Measures one line.
    /// @param text the line.
    /// @param width receives the width, for plain text the greater of advance and bounds through Qt, the ink through
    /// cairo.
    /// @param height receives the height.
    /// @param useQt measures as Qt draws; otherwise as cairo does.
    /// @return false, with width and height unchanged, when there is nothing to measure with.
    virtual bool GetTextExtent(const TXString& text, double& width, double& height, bool useQt) const = 0;
    /// Measures one line in whole units. Through Qt the width of plain text is the advance alone.
    virtual bool GetTextExtent(const TXString& text, int& width, int& height, bool useQt) const = 0;
    /// Measures a text of several lines, separated by "\n".
    /// @param text the lines. An empty line has no height through Qt, though it is drawn with one.
    /// @param width receives the greatest width of a line.
    /// @param height receives the sum of the lines' heights.
    /// @param useQt measures as Qt draws; otherwise as cairo does.
    /// @return false, with width and height 0, when there is nothing to measure with.
    virtual bool GetMultiTextExtent(const TXString& text, double& width, double& height, bool useQt) const = 0;
    /// Measures a text of several lines in whole units, truncated.
    virtual bool GetMultiTextExtent(const TXString& text, int& width, int& height, bool useQt) const = 0;
    /// Sets the extra space after every character, in pixels. Despite the name it is not a space between words. A
    /// number that is not finite changes nothing.
    virtual void SetWordSpacing(double spacing) = 0;
    /// Returns the extra space after every character; 0 until one is set.
    virtual double GetWordSpacing() const = 0;
    /// Measures the font itself.
    /// @param height receives the height of a line.
    /// @param ascent receives the reach above the baseline.
    /// @param descent receives the reach below the baseline.
    /// @param useQt measures as Qt draws; otherwise as cairo does. All three stay unchanged when there is nothing to
    /// measure with.
    virtual void GetFontMetricsInfo(double& height, double& ascent, double& descent, bool useQt) const = 0;
    /// Measures the font itself in whole units.
    virtual void GetFontMetricsInfo(int& height, int& ascent, int& descent, bool useQt) const = 0;
    /// Measures the characters of a text: through Qt the widest one, through cairo the average.
    /// @param text the characters.
    /// @param useQt measures as Qt draws; otherwise as cairo does.
    /// @return the width; 0 for the empty text. When there is nothing to measure with, 0 through Qt and the font's
    /// height through cairo.
    virtual double GetMaxCharWidthOfText(const TXString& text, bool useQt) const = 0;

    /// Returns the backend's font object, which this font owns; null while the font is empty.
    void* GetInternalObject() const { return internalObject; }
    /// Returns the English name of a well-known Chinese, Japanese or Korean face.
    /// @param name the localised name of the face.
    /// @return the English name, or the empty text for any other name. It lives as long as the library.
    static const TXString& GetEnglishNameForKnownFont(const TXString& name);

protected:
    void* internalObject = nullptr;       ///< The backend's font object. The backend's class owns it.
    TXItalicMode italicMode = ItalicNone; ///< The answer of `GetFontItalicMode`.
};

} // namespace TZObjects
