#pragma once

#include <QtGlobal>

class QFont;
class QString;

namespace txqt
{

// What Qt makes of a font depends on more than `QFont::operator==` compares. Whoever keeps something that was computed
// from a font must know these as well.

/// The resolution that a font was resolved for, in dots per inch: spacings and the points of rich text depend on it.
int DotsPerInch(const QFont& font);

/// A hash of the families that the process puts in place of the font's own, or, if @p ofAllFamilies, in place of any;
/// 0 when there are none.
quint64 SubstitutesHash(const QFont& font, bool ofAllFamilies);

/// Which faces Qt has loaded for a font: the same number means the same faces. Qt takes a character that the font lacks
/// from the first loaded face that has it, or else from the first that says that it has it, so that what is loaded for
/// one text can change another.
quint64 LoadedFaces(const QFont& font);

/// The state in which Qt's faces of a font are, as far as outlines depend on it: the same number means the same
/// outlines; 0 is the usual state.
///
/// Qt shifts a face by a fraction of a pixel to load the image of a glyph, and leaves it there. The outlines that are
/// made of the face next come out shifted by a fraction of a font unit, which moves some of their points by 1/64 of a
/// pixel. Whoever keeps outlines must therefore know the shift they were made with.
qint64 GlyphShift(const QFont& font);

/// True when a face of coloured bitmaps draws a part of the text. Qt gives such a glyph another advance until it has
/// made its outline once. To be asked after the text was measured or drawn.
bool UsesBitmapFace(const QFont& font, const QString& text);

/// Makes Qt load the faces that a text in small capitals needs. `QPainterPath::addText` takes those that the small
/// letters need from the font in its full size, and crashes where they were not loaded.
void LoadFacesOfSmallCapitals(const QFont& font, const QString& text);

} // namespace txqt
