#include "FontChange.h"

#include <ostream>

#include <tests/txpluginqt/text/RandomLabels.h>

using TZObjects::TXString;

FontChange::FontChange(Random& random) : FontChange(random, random.Int(0, kAttributes - 1)) {}

FontChange::FontChange(Random& random, int attribute)
    : attribute(attribute), values(RandomLabels(static_cast<unsigned>(random.Int(0, 1 << 30))).NextLabel().font),
      underline(random.Chance(40)), strikeOut(random.Chance(40))
{
}

std::ostream& operator<<(std::ostream& out, const FontChange& change)
{
    const FontChoice& v = change.values;
    switch (change.attribute)
    {
    case 0:
        return out << "height " << v.height;
    case 1:
        return out << "bold " << v.bold;
    case 2:
        return out << "italic mode " << v.italic;
    case 3:
        return out << "name " << TXString(v.family).toUTF8();
    case 4:
        return out << "underline " << change.underline;
    case 5:
        return out << "strike-out " << change.strikeOut;
    case 6:
        return out << "word spacing " << v.letterSpacing;
    case 7:
        return out << "halo " << v.halo;
    case 8:
        return out << "halo width " << v.haloWidth - 1;
    case 9:
        return out << "halo colour 0x" << std::hex << v.haloColor.GetColor() << std::dec;
    default:
        return out << "angle " << v.angle;
    }
}
