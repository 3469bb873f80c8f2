#include <txgraphics/TXGraphicsState.h>

#include <limits>

namespace TZObjects
{
namespace
{

/// Truncates toward zero; NaN gives 0 and what is out of range saturates, where a plain conversion is undefined.
int Truncated(double value)
{
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double largest = std::numeric_limits<int>::max();
    if (value != value)
        return 0;
    if (value <= lowest)
        return std::numeric_limits<int>::min();
    if (value >= largest)
        return std::numeric_limits<int>::max();
    return static_cast<int>(value);
}

} // namespace

TXGraphicsState::TXGraphicsState() = default;
TXGraphicsState::~TXGraphicsState() = default;

void TXGraphicsState::SetTextHorizAlign(int align) { textHorizAlign = align; }
void TXGraphicsState::SetTextVertAlign(int align) { textVertAlign = align; }
int TXGraphicsState::GetTextHorizAlign() const { return textHorizAlign; }
int TXGraphicsState::GetTextVertAlign() const { return textVertAlign; }
void TXGraphicsState::SetBackGoundColor(const TXColor& color) { backgroundColor = color; }
TXColor TXGraphicsState::GetBackGoundColor() { return backgroundColor; }

TXPoint TXGraphicsState::SetWindowOrg(TXPoint origin) { return SetWindowOrg(Truncated(origin.x), Truncated(origin.y)); }

} // namespace TZObjects
