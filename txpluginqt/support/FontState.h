#pragma once

#include <QtGlobal>

class QFont;

/// The state in which Qt's faces of a font are, as far as outlines depend on it: the same number means the same
/// outlines; 0 is the usual state.
///
/// Qt shifts a face by a fraction of a pixel to load the image of a glyph, and leaves it there. The outlines that are
/// made of the face next come out shifted by a fraction of a font unit, which moves some of their points by 1/64 of a
/// pixel. Whoever keeps outlines must therefore know the shift they were made with.
qint64 GlyphShift(const QFont& font);
