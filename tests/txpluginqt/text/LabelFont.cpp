#include "LabelFont.h"

#include <ostream>

#include <tests/support/TestEngine.h>

using namespace TZObjects;

std::ostream& operator<<(std::ostream& out, const FontChoice& choice)
{
    return out << TXString(choice.family).toUTF8() << " " << choice.height << " bold " << choice.bold << " italic "
               << choice.italic << " underline " << choice.underline << " strike-out " << choice.strikeOut
               << " letter spacing " << choice.letterSpacing << " halo " << choice.halo << " of " << choice.haloWidth
               << " angle " << choice.angle;
}

TXRefPtr<TXFont> MakeFont(const FontChoice& choice)
{
    const TXRefPtr<TXFont> font = TestEngine().NewFont();
    font->Create();
    font->SetFontBold(choice.bold);
    font->SetFontItalicMode(choice.italic);
    font->SetFontName(TXString(choice.family));
    font->SetFontHeight(choice.height);
    font->SetFontUnderline(choice.underline);
    font->SetFontStrikeOut(choice.strikeOut);
    font->SetWordSpacing(choice.letterSpacing);
    font->SetFontHalo(choice.halo);
    font->SetFontHaloWidth(choice.haloWidth);
    font->SetFontHaloColor(choice.haloColor);
    font->SetFontAngle(choice.angle);
    return font;
}

QFont DirectFont(const FontChoice& choice)
{
    QFont font;
    font.setWeight(choice.bold ? 75 : 50);
    font.setStyle(choice.italic == TXFont::ItalicFace ? QFont::StyleItalic : QFont::StyleNormal);
    font.setFamily(QString::fromStdWString(choice.family));
    font.setPixelSize(choice.height);
    font.setUnderline(choice.underline);
    font.setStrikeOut(choice.strikeOut);
    font.setLetterSpacing(QFont::AbsoluteSpacing, choice.letterSpacing);
    return font;
}
