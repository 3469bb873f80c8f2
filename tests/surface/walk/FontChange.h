#pragma once

#include <iosfwd>

#include <tests/txpluginqt/graphics/RandomCases.h>
#include <tests/txpluginqt/text/LabelFont.h>

/// A change by chance of one of a font's attributes.
class FontChange
{
public:
    explicit FontChange(Random& random);
    FontChange(Random& random, int attribute);

    /// How many attributes there are, numbered from 0.
    static constexpr int kAttributes = 11;

    /// Makes the change to a font of either side.
    template <class Font>
    void Make(Font& font) const
    {
        switch (attribute)
        {
        case 0:
            return font.SetFontHeight(values.height);
        case 1:
            return font.SetFontBold(values.bold);
        case 2:
            return font.SetFontItalicMode(values.italic);
        case 3:
            return font.SetFontName(TZObjects::TXString(values.family));
        case 4:
            return font.SetFontUnderline(underline);
        case 5:
            return font.SetFontStrikeOut(strikeOut);
        case 6:
            return font.SetWordSpacing(values.letterSpacing);
        case 7:
            return font.SetFontHalo(values.halo);
        case 8:
            return font.SetFontHaloWidth(values.haloWidth - 1);
        case 9:
            return font.SetFontHaloColor(values.haloColor);
        default:
            return font.SetFontAngle(values.angle);
        }
    }

    friend std::ostream& operator<<(std::ostream& out, const FontChange& change);

private:
    int attribute;
    FontChoice values;
    bool underline;
    bool strikeOut;
};
