#include "FontDouble.h"

using namespace TZObjects;

FontDouble::FontDouble(TXRefPtr<TXFont> realFont)
    : real(std::move(realFont)), qfont(std::make_unique<QFont>(*static_cast<QFont*>(real->GetInternalObject())))
{
    // `GetInternalObject` cannot be overridden.
    internalObject = qfont.get();
}

FontDouble::~FontDouble() = default;

void FontDouble::Asked(Question question) const
{
    if (onQuestion)
        onQuestion(question);
}

int FontDouble::GetFontHeight() const
{
    Asked(Height);
    return height.value_or(real->GetFontHeight());
}

int FontDouble::GetFontAngle() const
{
    Asked(Angle);
    return real->GetFontAngle();
}

TXFont::TXItalicMode FontDouble::GetFontItalicMode()
{
    Asked(ItalicMode);
    return real->GetFontItalicMode();
}

int FontDouble::GetFontHaloWidth() const
{
    Asked(Other);
    return haloWidth.value_or(real->GetFontHaloWidth());
}

TXString FontDouble::GetFontName() const
{
    Asked(Other);
    return name.value_or(real->GetFontName());
}

double FontDouble::GetWordSpacing() const
{
    Asked(WordSpacing);
    return spacing.value_or(real->GetWordSpacing());
}

bool FontDouble::GetTextExtent(const TXString& text, double& w, double& h, bool useQt) const
{
    return real->GetTextExtent(text, w, h, useQt);
}

bool FontDouble::GetTextExtent(const TXString& text, int& w, int& h, bool useQt) const
{
    return real->GetTextExtent(text, w, h, useQt);
}

bool FontDouble::GetMultiTextExtent(const TXString& text, double& w, double& h, bool useQt) const
{
    return real->GetMultiTextExtent(text, w, h, useQt);
}

bool FontDouble::GetMultiTextExtent(const TXString& text, int& w, int& h, bool useQt) const
{
    return real->GetMultiTextExtent(text, w, h, useQt);
}

void FontDouble::GetFontMetricsInfo(double& fontHeight, double& ascent, double& descent, bool useQt) const
{
    real->GetFontMetricsInfo(fontHeight, ascent, descent, useQt);
}

void FontDouble::GetFontMetricsInfo(int& fontHeight, int& ascent, int& descent, bool useQt) const
{
    real->GetFontMetricsInfo(fontHeight, ascent, descent, useQt);
}

double FontDouble::GetMaxCharWidthOfText(const TXString& text, bool useQt) const
{
    return real->GetMaxCharWidthOfText(text, useQt);
}

TXRefPtr<FontDouble> NewFontDouble(const Look& look) { return new FontDouble(MakeFont(look)); }
