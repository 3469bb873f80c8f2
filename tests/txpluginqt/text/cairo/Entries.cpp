#include "Entries.h"

#include <algorithm>
#include <cmath>
#include <ostream>

using namespace TZObjects;

namespace
{

constexpr double kPi = 3.141592653589793;

/// What all labels take from the font and from their arguments.
ExpectedLabel Common(const LabelCall& call, const Look& look)
{
    ExpectedLabel label;
    label.text = QString::fromStdWString(call.text.toStdWString());
    label.x = call.ox;
    label.y = call.oy;
    label.angle = call.angle;
    label.scale = call.scale;
    label.fontHeight = look.height;
    label.align = call.hAlign;
    label.lineSpacing = call.lineSpacing;
    label.charSpacing = look.spacing;
    label.color = look.pen;
    label.halo = look.halo;
    label.haloColor = TXColor(look.haloColor.getR(), look.haloColor.getG(), look.haloColor.getB(), 255);
    label.haloWidth = std::max(look.haloWidth, 1);
    label.underline = look.underline;
    label.strikeOut = look.strikeOut;
    return label;
}

ExpectedLabel Outline(const LabelCall& call, const Look& look)
{
    ExpectedLabel label = Common(call, look);
    label.color = call.fill;
    label.halo = true;
    return label;
}

ExpectedLabel Vertical(const LabelCall& call, const Look& look)
{
    ExpectedLabel label = Common(call, look);
    label.color = call.fill;
    label.halo = call.halo && look.halo;
    label.align = call.vAlign;
    label.italic = look.italics != TXFont::ItalicNone;
    return label;
}

/// A label that is placed by its top left and turns about, and is scaled from, another point.
ExpectedLabel TurnedAbout(ExpectedLabel label, const LabelCall& call)
{
    const double radians = call.angle * kPi / 180;
    const double dx = call.scale * (call.left - call.ox);
    const double dy = call.scale * (call.top - call.oy);
    label.x = call.ox + dx * std::cos(radians) - dy * std::sin(radians);
    label.y = call.oy + dx * std::sin(radians) + dy * std::cos(radians);
    return label;
}

ExpectedLabel Offset(ExpectedLabel label, const LabelCall& call)
{
    label.x = call.ox + call.left;
    label.y = call.oy + call.top;
    label.lineSpacing = 0.0;
    return label;
}

// The right and the bottom edge of the box are not used, so they are odd here.
constexpr double kRight = -1000.0;
constexpr double kBottom = 1e6;

} // namespace

const Entry kEntries[8] = {
    {"DrawStringInBox",
     [](TXGraphics& s, const LabelCall& c)
     { return s.DrawString(c.ox, c.oy, c.left, kRight, c.top, kBottom, c.vAlign, c.hAlign, c.text, c.angle, c.scale); },
     [](cairo_t* cr, const LabelCall& c, const Look& l)
     {
         ExpectedLabel label = TurnedAbout(Common(c, l), c);
         label.lineSpacing = 0.0;
         label.DrawLines(cr);
     }},
    {"DrawStringAtPoint",
     [](TXGraphics& s, const LabelCall& c)
     { return s.DrawString(c.ox, c.oy, c.vAlign, c.hAlign, c.text, c.angle, c.lineSpacing, c.scale); },
     [](cairo_t* cr, const LabelCall& c, const Look& l) { Common(c, l).DrawLines(cr); }},
    {"DrawStringWithOffset",
     [](TXGraphics& s, const LabelCall& c)
     { return s.DrawString(c.ox, c.oy, c.left, c.top, c.vAlign, c.hAlign, c.text, c.angle, c.scale); },
     [](cairo_t* cr, const LabelCall& c, const Look& l) { Offset(Common(c, l), c).DrawLines(cr); }},
    {"DrawStringByFontAngle",
     [](TXGraphics& s, const LabelCall& c)
     { return s.DrawString(c.ox, c.oy, c.left, c.top, c.vAlign, c.hAlign, c.text, c.scale); },
     [](cairo_t* cr, const LabelCall& c, const Look& l)
     {
         ExpectedLabel label = Offset(Common(c, l), c);
         label.angle = l.angle;
         label.DrawLines(cr);
     }},
    {"DrawOutlineStringByCorner",
     [](TXGraphics& s, const LabelCall& c)
     {
         return s.DrawOutlineString(c.ox, c.oy, c.left, c.top, c.vAlign, c.hAlign, c.text, c.fill, c.angle,
                                    c.lineSpacing, c.scale);
     },
     [](cairo_t* cr, const LabelCall& c, const Look& l) { TurnedAbout(Outline(c, l), c).DrawLines(cr); }},
    {"DrawOutlineStringAtPoint",
     [](TXGraphics& s, const LabelCall& c)
     { return s.DrawOutlineString(c.ox, c.oy, c.vAlign, c.hAlign, c.text, c.fill, c.angle, c.lineSpacing, c.scale); },
     [](cairo_t* cr, const LabelCall& c, const Look& l) { Outline(c, l).DrawLines(cr); }},
    {"DrawVerticalStringByCorner",
     [](TXGraphics& s, const LabelCall& c)
     {
         return s.DrawVerticalString(c.ox, c.oy, c.left, c.top, c.vAlign, c.hAlign, c.text, c.fill, c.angle,
                                     c.lineSpacing, c.unusedSpacing, c.halo, c.scale);
     },
     [](cairo_t* cr, const LabelCall& c, const Look& l) { TurnedAbout(Vertical(c, l), c).DrawColumns(cr); }},
    {"DrawVerticalStringAtPoint",
     [](TXGraphics& s, const LabelCall& c)
     {
         return s.DrawVerticalString(c.ox, c.oy, c.vAlign, c.hAlign, c.text, c.fill, c.angle, c.lineSpacing,
                                     c.unusedSpacing, c.halo, c.scale);
     },
     [](cairo_t* cr, const LabelCall& c, const Look& l) { Vertical(c, l).DrawColumns(cr); }},
};

const Entry& kBoxEntry = kEntries[0];
const Entry& kPointEntry = kEntries[1];
const Entry& kOffsetEntry = kEntries[2];
const Entry& kFontAngleEntry = kEntries[3];
const Entry& kOutlineBoxEntry = kEntries[4];
const Entry& kOutlineEntry = kEntries[5];
const Entry& kVerticalBoxEntry = kEntries[6];
const Entry& kVerticalEntry = kEntries[7];

std::ostream& operator<<(std::ostream& out, const Entry& entry) { return out << entry.name; }

std::ostream& operator<<(std::ostream& out, const LabelCall& call)
{
    return out << "label \"" << call.text.toUTF8().substr(0, 60) << "\" at (" << call.ox << ", " << call.oy << "), ("
               << call.left << ", " << call.top << "), alignment v " << call.vAlign << " h " << call.hAlign
               << ", angle " << call.angle << ", line spacing " << call.lineSpacing << ", halo " << call.halo
               << ", scale " << call.scale;
}

std::ostream& operator<<(std::ostream& out, const Look& look)
{
    return out << look.family << ' ' << look.height << ", bold " << look.bold << ", italics " << look.italics
               << ", underline " << look.underline << ", strike-out " << look.strikeOut << ", halo " << look.halo
               << " of " << look.haloWidth << ", spacing " << look.spacing << ", angle " << look.angle << ", pen 0x"
               << std::hex << look.pen.GetColor() << std::dec;
}
