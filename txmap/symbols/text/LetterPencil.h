#pragma once

#include <map>

#include <txbase/TXColor.h>
#include <txbase/TXPoint.h>
#include <txbase/TXRefPtr.h>
#include <txgraphics/TXGraphics.h>
#include <txmap/symbols/text/TextBlock.h>

namespace TZObjects
{
class TXGraphicsEngine;
} // namespace TZObjects

namespace txmap
{

/// Letters in their place in the picture.
struct PlacedLetters
{
    const TextPiece* piece = nullptr;
    TZObjects::TXPoint origin; ///< The left end of the baseline.
    double angle = 0.0;        ///< About the origin, clockwise, in degrees.
};

/// The halo of letters: a stroke along their outlines.
struct LetterHalo
{
    TZObjects::TXColor color;
    double width = 0.0; ///< How far it reaches beyond the letters, in pixels; above 0.
};

/// Draws letters on one surface, and selects a font or pen only if another one is selected. It puts the surface back
/// as it was when it ends.
class LetterPencil
{
public:
    /// Both must outlive the pencil.
    LetterPencil(TZObjects::TXGraphicsEngine& engine, TZObjects::TXGraphics& surface);
    ~LetterPencil();
    LetterPencil(const LetterPencil&) = delete;
    LetterPencil& operator=(const LetterPencil&) = delete;

    void DrawLetters(const PlacedLetters& letters, const TZObjects::TXColor& color);
    /// Draws the halo alone, and what lies under the letters with it.
    void DrawHalo(const PlacedLetters& letters, const LetterHalo& halo);

private:
    struct Size;
    void Outline(const PlacedLetters& letters, const LetterHalo& halo);
    void Draw(const PlacedLetters& letters, const Size& size);
    void Use(const TextPiece& piece, const Size& size);
    void UsePath(TextPath path);
    void UsePen(const TZObjects::TXColor& color);

    TZObjects::TXGraphicsEngine& engine;
    TZObjects::TXGraphics& surface;
    TextPath before;
    TextPath path;
    std::map<unsigned, TZObjects::TXRefPtr<TZObjects::TXPen>> pens; ///< By colour.
    const TZObjects::TXPen* pen = nullptr;                          ///< What is selected, as the next.
    const TZObjects::TXFont* font = nullptr;
};

} // namespace txmap
