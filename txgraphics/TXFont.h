#pragma once

#include <txbase/TXColor.h>
#include <txbase/TXRefBase.h>
#include <txbase/TXString.h>
#include <txgraphics/Export.h>

namespace TZObjects
{

/// The font of labels and font markers, with the attributes that label drawing reads from it, and with measuring.
///
/// A font is empty until `Create`. On an empty font the setters of face, height, weight, italics, underline, strike-out
/// and spacing do nothing and getters answer neutral values; the plain attributes (width, angles, halo, shadow) are
/// kept apart from the backend's font and can be set at any time.
///
/// Measuring takes a final flag: true measures as Qt draws, false as cairo draws.
class TXGRAPHICS_API TXFont : public TXRefBase
{
public:
    /// How italics come about.
    enum TXItalicMode : int
    {
        ItalicNone = 0, ///< Upright.
        ItalicFace = 1, ///< The italic face.
        ItalicSlant = 2 ///< The upright face, slanted by the label renderer.
    };

    TXFont();
    ~TXFont() override;

    /// Makes the default font afresh; plain attributes survive. @return true.
    virtual bool Create() = 0;
    /// Empties the font; plain attributes survive.
    virtual void Delete() = 0;

    /// Stores a width, which nothing else uses; values below 1 are ignored.
    virtual void SetFontWidth(int width) = 0;
    virtual int GetFontWidth() const = 0;
    /// Sets the height of the em in pixels; values below 1 are ignored, and what is above 40,000 becomes 40,000.
    virtual void SetFontHeight(int height) = 0;
    virtual int GetFontHeight() const = 0;
    /// Sets the weight on the scale 100 to 900 (400 normal, 700 bold), raised to the next hundred; values below 1 are
    /// ignored.
    virtual void SetFontWeight(int weight) = 0;
    virtual int GetFontWeight() const = 0;
    /// Stores the angle of labels that have none of their own, in degrees, clockwise.
    virtual void SetFontAngle(int angle) = 0;
    virtual int GetFontAngle() const = 0;
    /// Sets weight 700 or 400.
    virtual void SetFontBold(bool bold) = 0;
    /// True for weights above 500.
    virtual bool GetFontBold() const = 0;
    /// Switches italics off, or on by the face unless the italic mode is `ItalicSlant`, which is kept.
    virtual void SetFontItalic(bool italic) = 0;
    /// True for an italic face and for `ItalicSlant`.
    virtual bool GetFontItalic() const = 0;
    /// Sets the italic mode; only `ItalicFace` uses the italic face.
    virtual void SetFontItalicMode(TXItalicMode mode) = 0;
    /// The italic mode set last.
    virtual TXItalicMode GetFontItalicMode();
    /// Stores an angle of italics in degrees, which nothing else uses.
    virtual void SetFontItalicAngle(int angle) = 0;
    virtual int GetFontItalicAngle() const = 0;
    /// Draws a rule below the text.
    virtual void SetFontUnderline(bool underline) = 0;
    virtual bool GetFontUnderline() const = 0;
    /// Draws a rule through the text.
    virtual void SetFontStrikeOut(bool strikeOut) = 0;
    virtual bool GetFontStrikeOut() const = 0;
    /// Stores whether labels get a halo.
    virtual void SetFontHalo(bool halo) = 0;
    virtual bool GetFontHalo() const = 0;
    /// Stores the width of the halo's stroke in pixels; values below 1 become 1.
    virtual void SetFontHaloWidth(int width) = 0;
    virtual int GetFontHaloWidth() const = 0;
    /// Stores the colour of the halo.
    virtual void SetFontHaloColor(TXColor color) = 0;
    virtual TXColor GetFontHaloColor() const = 0;
    /// Stores whether labels get a shadow, which nothing else uses.
    virtual void SetFontShadow(bool shadow) = 0;
    virtual bool GetFontShadow() const = 0;
    /// Sets the face by its name; a known localised name is replaced by the English one. An empty name is ignored.
    virtual void SetFontName(TXString name) = 0;
    /// The name of the face, in English where known.
    virtual TXString GetFontName() const = 0;

    /// Measures one line, label tags interpreted. @return false, outputs untouched, when the font is empty or has
    /// nothing to measure with on the chosen path.
    virtual bool GetTextExtent(const TXString& text, double& width, double& height, bool useQt) const = 0;
    /// The same in whole units.
    virtual bool GetTextExtent(const TXString& text, int& width, int& height, bool useQt) const = 0;
    /// Measures several lines separated by "\n": the greatest width and the sum of heights.
    virtual bool GetMultiTextExtent(const TXString& text, double& width, double& height, bool useQt) const = 0;
    /// The same in whole units.
    virtual bool GetMultiTextExtent(const TXString& text, int& width, int& height, bool useQt) const = 0;
    /// Sets the extra space after every character, in pixels.
    virtual void SetWordSpacing(double spacing) = 0;
    virtual double GetWordSpacing() const = 0;
    /// Height, ascent and descent of the font; untouched when there is nothing to measure with.
    virtual void GetFontMetricsInfo(double& height, double& ascent, double& descent, bool useQt) const = 0;
    /// The same in whole units.
    virtual void GetFontMetricsInfo(int& height, int& ascent, int& descent, bool useQt) const = 0;
    /// The width of the widest character as Qt draws, or the average width as cairo draws. 0 for an empty text.
    virtual double GetMaxCharWidthOfText(const TXString& text, bool useQt) const = 0;

    /// The backend's font object, owned by this font; null while the font is empty.
    void* GetInternalObject() const { return internalObject; }
    /// The English name of a face whose localised name is known; the empty text for every other name. The result lives
    /// as long as the library.
    static const TXString& GetEnglishNameForKnownFont(const TXString& name);

protected:
    void* internalObject = nullptr;       ///< The backend's font object; the backend class owns it.
    TXItalicMode italicMode = ItalicNone; ///< What `GetFontItalicMode` answers.
};

} // namespace TZObjects
