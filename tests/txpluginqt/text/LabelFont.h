#pragma once

#include <iosfwd>
#include <string>

#include <QFont>

#include <txgraphics/txgraphics.h>

/// The font of a label under test, from which the plugin's font and the font of the direct painter are made.
struct FontChoice
{
    std::wstring family = L"DejaVu Sans";
    int height = 18;
    bool bold = false;
    TZObjects::TXFont::TXItalicMode italic = TZObjects::TXFont::ItalicNone;
    bool underline = false;
    bool strikeOut = false;
    double letterSpacing = 0.0;
    bool halo = false;
    int haloWidth = 1;
    TZObjects::TXColor haloColor = TZObjects::TXColor::BLACK_;
    int angle = 0;
};

std::ostream& operator<<(std::ostream& out, const FontChoice& choice);

/// The plugin's font. Weight and italics are set before the name, which hands them on to cairo.
TZObjects::TXRefPtr<TZObjects::TXFont> MakeFont(const FontChoice& choice);

/// The same font made directly.
QFont DirectFont(const FontChoice& choice);
