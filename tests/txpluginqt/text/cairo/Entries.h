#pragma once

#include <iosfwd>
#include <string>

#include <txgraphics/TXGraphics.h>

#include "CairoLabels.h"
#include <tests/txpluginqt/cairo/CairoTwins.h>

/// The arguments of a label, for whichever of the public operations.
struct LabelCall
{
    double ox = 40.0;
    double oy = 30.0;
    double left = 55.0; // the second pair of coordinates, or the offset (dx, dy)
    double top = 42.0;
    TZObjects::TXGraphics::TXTextVertAlign vAlign = TZObjects::TXGraphics::TextAlignTop;
    TZObjects::TXGraphics::TXTextHorizAlign hAlign = TZObjects::TXGraphics::TextAlignLeft;
    TZObjects::TXString text = L"Hag";
    TZObjects::TXColor fill{150, 30, 40, 255};
    double angle = 0.0;
    double lineSpacing = 0.0;
    double unusedSpacing = 0.0; // the argument of the vertical operations that is not used
    bool halo = false;
    double scale = 1.0;
};

/// One of the eight public label operations, and what it is expected to draw.
struct Entry
{
    const char* name;
    bool (*draw)(TZObjects::TXGraphics& surface, const LabelCall& call);
    void (*expect)(cairo_t* context, const LabelCall& call, const Look& look);
};

extern const Entry kEntries[8];

/// The entries by what is special to them.
extern const Entry& kBoxEntry;         // DrawString by six coordinates
extern const Entry& kPointEntry;       // DrawString by two coordinates
extern const Entry& kOffsetEntry;      // DrawString by four coordinates
extern const Entry& kFontAngleEntry;   // the same with the font's angle
extern const Entry& kOutlineBoxEntry;  // DrawOutlineString by four coordinates
extern const Entry& kOutlineEntry;     // DrawOutlineString by two coordinates
extern const Entry& kVerticalBoxEntry; // DrawVerticalString by four coordinates
extern const Entry& kVerticalEntry;    // DrawVerticalString by two coordinates

std::ostream& operator<<(std::ostream& out, const Entry& entry);
std::ostream& operator<<(std::ostream& out, const LabelCall& call);
std::ostream& operator<<(std::ostream& out, const Look& look);
