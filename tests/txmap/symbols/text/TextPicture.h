#pragma once

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXGraphicsEngine.h>
#include <txmap/drawing/PluginSession.h>
#include <txmap/symbols/text/SymbolFonts.h>
#include <txmap/symbols/text/TextBlock.h>

/// Lays out texts in the fonts of the tests, and draws them on pictures of 256 pixels a side.
class TextPicture : public ::testing::Test
{
protected:
    using Draw = std::function<void(TZObjects::TXGraphics&)>;

    TextPicture();

    static txmap::TextSection Section(const std::string& text);
    /// A section of a picture.
    static txmap::TextSection Image(const std::string& name, double width, double height);
    /// In DejaVu Sans Mono, whose letters are all as wide.
    static txmap::TextStyle Mono(double size);
    txmap::TextBlock LayOut(const std::string& text, const txmap::TextStyle& style);
    /// What a text's lines or columns are: the letters that are drawn at the same height or in the same column.
    std::vector<std::wstring> Lines(const std::string& text, const txmap::TextStyle& style);

    /// The pixels of a new picture after drawing on it.
    std::vector<unsigned> Drawn(const Draw& draw);
    /// A font as a host makes one, and a pen.
    TZObjects::TXRefPtr<TZObjects::TXFont> Font(const char* face, int height);
    TZObjects::TXRefPtr<TZObjects::TXPen> Pen(const TZObjects::TXColor& color);

    txmap::PluginSession plugin;
    std::vector<std::string> missing; ///< Names that fonts were asked for in vain.
    txmap::SymbolFonts fonts;
};

/// How many pixels differ.
std::size_t Differing(const std::vector<unsigned>& a, const std::vector<unsigned>& b);
/// How many pixels are not white.
std::size_t Inked(const std::vector<unsigned>& pixels);
