#pragma once

#include <txgraphics/txgraphics.h>

namespace gallery
{

using namespace TZObjects;

/// Loads the Qt plugin and has new images made in the format that it draws fastest in. Null, with a message on the
/// standard error stream, when it cannot be loaded.
TXRefPtr<TXGraphicsEngine> LoadEngine();

/// A font of that many pixels.
TXRefPtr<TXFont> NewFont(TXGraphicsEngine& engine, const char* face, int height);

/// How many cards a sheet has, how large they are, and their colour. The size includes the gap between cards.
struct SheetLayout
{
    int columns;
    int rows;
    int cardWidth;
    int cardHeight;
    TXColor color;
};

/// A contact sheet: captioned cards, row by row.
class Sheet
{
public:
    Sheet(TXGraphicsEngine& engine, const SheetLayout& layout);

    /// What the sheet is drawn on. The captions take the pen that is selected here.
    TXGraphics& Surface() { return *surface; }
    /// Draws the next card with its caption. @return the top left corner of its place.
    TXPoint AddCard(const TXString& caption);
    /// Writes the sheet to a file. @return false, with a message that names the file, when that fails.
    bool Save(const TXString& path) const;

private:
    SheetLayout layout;
    TXRefPtr<TXGraphics> surface;
    TXRefPtr<TXFont> captionFont;
    int cards = 0;
};

} // namespace gallery
