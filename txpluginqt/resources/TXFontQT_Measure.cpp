#include <txpluginqt/resources/TXFontQT.h>

// Until labels are drawn there is nothing to measure: every answer is the one for a font that cannot measure.
namespace TZObjects
{

bool TXFontQT::GetTextExtent(const TXString&, double&, double&, bool) const { return false; }
bool TXFontQT::GetTextExtent(const TXString&, int&, int&, bool) const { return false; }
bool TXFontQT::GetMultiTextExtent(const TXString&, double&, double&, bool) const { return false; }
bool TXFontQT::GetMultiTextExtent(const TXString&, int&, int&, bool) const { return false; }
void TXFontQT::GetFontMetricsInfo(double&, double&, double&, bool) const {}
void TXFontQT::GetFontMetricsInfo(int&, int&, int&, bool) const {}
double TXFontQT::GetMaxCharWidthOfText(const TXString&, bool) const { return 0.0; }

} // namespace TZObjects
