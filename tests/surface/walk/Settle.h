#pragma once

constexpr const char* kColouredFamily = "Noto Color Emoji";

class QFont;
class QString;

/// Has Qt load the faces that a text needs, and make the outlines of coloured glyphs once. Until then Qt gives coloured
/// glyphs another advance, and may take a character from another face, so that the side that comes first would draw
/// another label.
/// @return false for a text of Latin letters, which needs nothing, unless the font is itself a face of coloured glyphs.
bool Settle(const QFont& font, const QString& text);
