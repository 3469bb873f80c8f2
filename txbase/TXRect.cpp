#include <txbase/TXRect.h>

namespace TZObjects
{

bool operator==(const TXRect& a, const TXRect& b)
{
    return a.left == b.left && a.right == b.right && a.top == b.top && a.bottom == b.bottom;
}

bool operator!=(const TXRect& a, const TXRect& b) { return !(a == b); }

} // namespace TZObjects
