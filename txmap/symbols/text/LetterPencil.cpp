#include <txmap/symbols/text/LetterPencil.h>

#include <algorithm>
#include <cmath>

#include <txgraphics/TXGraphicsEngine.h>
#include <txmap/labels/HaloCopies.h>
#include <txmap/labels/LabelFonts.h>
#include <txmap/support/Failure.h>
#include <txmap/symbols/text/SymbolFonts.h>

namespace txmap
{

using TZObjects::TXColor;
using TZObjects::TXFont;
using TZObjects::TXGraphics;
using TZObjects::TXPen;
using TZObjects::TXPoint;
using TZObjects::TXRefPtr;
using TZObjects::TXString;

namespace
{

// Higher letters are these, enlarged.
constexpr double kHighestFont = 512.0;
// Strokes are whole pixels wide, of a font that is drawn smaller where they must be finer.
constexpr double kFinerFont = 8.0;
constexpr double kStrokeError = 1.0 / 64.0;
// Places are rounded to parts of a pixel that binary numbers hold, so that the same letters have exactly the same
// outlines elsewhere, which backends keep.
constexpr double kPlaces = 256.0;

TXPoint Rounded(const TXPoint& point)
{
    return {std::round(point.x * kPlaces) / kPlaces, std::round(point.y * kPlaces) / kPlaces};
}

/// Calls for what is drawn in one go, and where: the whole text, or each of its letters.
template <class Call>
void ForEachText(const PlacedLetters& letters, Call call)
{
    if (letters.piece->letters.empty())
        return call(letters.piece->text, Rounded(letters.origin));
    const double radians = letters.angle * M_PI / 180.0;
    const TXPoint along = letters.angle == 0.0 ? TXPoint(1.0, 0.0) : TXPoint(std::cos(radians), std::sin(radians));
    for (const PieceLetter& letter : letters.piece->letters)
        call(*letter.text,
             Rounded({letters.origin.x + along.x * letter.left, letters.origin.y + along.y * letter.left}));
}

} // namespace

/// A font, and the scale with which letters have their size.
struct LetterPencil::Size
{
    int height;
    double scale;

    /// @param stroke a width that must be a whole number of pixels before it is scaled.
    static Size For(const TextPiece& piece, double stroke)
    {
        // Through cairo letters have the size of a font that tells where its baseline is.
        if (piece.face->Path() == TextPath::Cairo)
            return {static_cast<int>(std::max(1.0, std::round(piece.size))), 1.0};
        double height = std::clamp(std::ceil(piece.size), 1.0, kHighestFont);
        const double wide = stroke * height / piece.size;
        if (stroke > 0.0 && std::abs(wide - std::max(1.0, std::round(wide))) > kStrokeError)
            height = std::clamp(std::round(piece.size * kFinerFont), 1.0, kHighestFont);
        return {static_cast<int>(height), piece.size / height};
    }
};

LetterPencil::LetterPencil(TZObjects::TXGraphicsEngine& engine, TXGraphics& surface)
    : engine(engine), surface(surface), before(surface.CairoDrawingEnabled() ? TextPath::Cairo : TextPath::Qt),
      path(before)
{
    surface.Save();
}

LetterPencil::~LetterPencil()
{
    if (path != before)
        surface.EnableCairoDrawing(before == TextPath::Cairo);
    surface.Restore();
}

void LetterPencil::DrawLetters(const PlacedLetters& letters, const TXColor& color)
{
    const Size size = Size::For(*letters.piece, 0.0);
    Use(*letters.piece, size);
    UsePen(color);
    Draw(letters, size);
}

void LetterPencil::DrawHalo(const PlacedLetters& letters, const LetterHalo& halo)
{
    if (letters.piece->face->Path() == TextPath::Qt)
        return Outline(letters, halo);
    // Its strokes have spikes where letters have sharp corners.
    const Size size = Size::For(*letters.piece, 0.0);
    Use(*letters.piece, size);
    UsePen(halo.color);
    PlacedLetters copy = letters;
    for (const TXPoint& moved : HaloCopies(halo.width))
    {
        copy.origin = {letters.origin.x + moved.x, letters.origin.y + moved.y};
        Draw(copy, size);
    }
}

void LetterPencil::Outline(const PlacedLetters& letters, const LetterHalo& halo)
{
    const TextPiece& piece = *letters.piece;
    // Half of a stroke lies within the letters.
    const Size size = Size::For(piece, 2.0 * halo.width);
    const TXRefPtr<TXFont>& wanted = piece.face->Font(size.height, piece.spacing * size.height);
    wanted->SetFontHaloWidth(std::max(1, static_cast<int>(std::lround(2.0 * halo.width / size.scale))));
    wanted->SetFontHaloColor(halo.color);
    Use(piece, size);
    const double ascent = piece.face->Ascent(size.height);
    ForEachText(letters,
                [&](const TXString& text, const TXPoint& at)
                {
                    RequireLabel(surface.DrawOutlineString(at.x, at.y, at.x, at.y - ascent, TXGraphics::TextAlignTop,
                                                           TXGraphics::TextAlignLeft, text, TXColor(0, 0, 0, 0),
                                                           letters.angle, 0.0, size.scale));
                });
}

void LetterPencil::Draw(const PlacedLetters& letters, const Size& size)
{
    const double ascent = letters.piece->face->Ascent(size.height);
    ForEachText(letters,
                [&](const TXString& text, const TXPoint& at)
                {
                    RequireLabel(surface.DrawString(at.x, at.y, at.x, at.x, at.y - ascent, at.y,
                                                    TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft, text,
                                                    letters.angle, size.scale));
                });
}

void LetterPencil::Use(const TextPiece& piece, const Size& size)
{
    UsePath(piece.face->Path());
    const TXRefPtr<TXFont>& wanted = piece.face->Font(size.height, piece.spacing * size.height);
    if (wanted.get() == font)
        return;
    surface.SelectFont(wanted);
    font = wanted.get();
}

void LetterPencil::UsePath(TextPath wanted)
{
    if (wanted == path)
        return;
    surface.EnableCairoDrawing(wanted == TextPath::Cairo);
    if (surface.CairoDrawingEnabled() != (wanted == TextPath::Cairo))
        throw Failure(ExitCode::Drawing, "the plugin cannot draw labels by the text engine that was asked for");
    path = wanted;
    font = nullptr;
}

void LetterPencil::UsePen(const TXColor& color)
{
    TXRefPtr<TXPen>& wanted = pens[color.GetColor()];
    if (!wanted)
    {
        wanted = TXRefPtr<TXPen>(engine.NewPen());
        RequireLabel(wanted && wanted->Create(TXPen::SolidLine, 1.0, color, TXPen::RoundCap, TXPen::RoundJoin));
    }
    if (wanted.get() == pen)
        return;
    surface.SelectPen(wanted);
    pen = wanted.get();
}

} // namespace txmap
