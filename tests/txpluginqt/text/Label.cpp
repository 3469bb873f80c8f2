#include "Label.h"

#include <ostream>

using namespace TZObjects;

const char* NameOf(Entry entry)
{
    switch (entry)
    {
    case Entry::StringInBox:
        return "StringInBox";
    case Entry::StringMoved:
        return "StringMoved";
    case Entry::StringByFontAngle:
        return "StringByFontAngle";
    case Entry::StringAt:
        return "StringAt";
    case Entry::OutlineAbout:
        return "OutlineAbout";
    case Entry::OutlineAt:
        return "OutlineAt";
    case Entry::VerticalAbout:
        return "VerticalAbout";
    case Entry::VerticalAt:
        return "VerticalAt";
    }
    return "?";
}

std::ostream& operator<<(std::ostream& out, Entry entry) { return out << NameOf(entry); }

std::ostream& operator<<(std::ostream& out, const Label& label)
{
    return out << "\"" << TXString(label.text.substr(0, 60)).toUTF8() << "\" aligned " << label.hAlign << ", angle "
               << label.angle << ", scale " << label.scale << ", at (" << label.x << ", " << label.y << "), spacings "
               << label.lineSpacing << ", " << label.columnSpacing << ", " << label.charSpacing << ", halo "
               << label.halo << "; font " << label.font;
}

bool Draw(TXGraphics& surface, Entry entry, const Label& l)
{
    const auto v = static_cast<TXGraphics::TXTextVertAlign>(l.vAlign);
    const auto h = static_cast<TXGraphics::TXTextHorizAlign>(l.hAlign);
    const TXString text(l.text);
    switch (entry)
    {
    case Entry::StringInBox:
        return surface.DrawString(l.x, l.y, l.left, l.right, l.top, l.bottom, v, h, text, l.angle, l.scale);
    case Entry::StringMoved:
        return surface.DrawString(l.x, l.y, l.dx, l.dy, v, h, text, l.angle, l.scale);
    case Entry::StringByFontAngle:
        return surface.DrawString(l.x, l.y, l.dx, l.dy, v, h, text, l.scale);
    case Entry::StringAt:
        return surface.DrawString(l.x, l.y, v, h, text, l.angle, l.lineSpacing, l.scale);
    case Entry::OutlineAbout:
        return surface.DrawOutlineString(l.x, l.y, l.left, l.top, v, h, text, l.fill, l.angle, l.lineSpacing, l.scale);
    case Entry::OutlineAt:
        return surface.DrawOutlineString(l.x, l.y, v, h, text, l.fill, l.angle, l.lineSpacing, l.scale);
    case Entry::VerticalAbout:
        return surface.DrawVerticalString(l.x, l.y, l.left, l.top, v, h, text, l.fill, l.angle, l.columnSpacing,
                                          l.charSpacing, l.halo, l.scale);
    case Entry::VerticalAt:
        return surface.DrawVerticalString(l.x, l.y, v, h, text, l.fill, l.angle, l.columnSpacing, l.charSpacing, l.halo,
                                          l.scale);
    }
    return false;
}

std::vector<NumberArgument> NumbersOf(Entry entry)
{
    std::vector<NumberArgument> numbers = {{"x", &Label::x}, {"y", &Label::y}, {"scale", &Label::scale}};
    const auto add = [&](std::initializer_list<NumberArgument> more)
    { numbers.insert(numbers.end(), more.begin(), more.end()); };
    if (entry == Entry::StringInBox || entry == Entry::OutlineAbout || entry == Entry::VerticalAbout)
        add({{"left", &Label::left}, {"top", &Label::top}});
    if (entry == Entry::StringInBox)
        add({{"right", &Label::right}, {"bottom", &Label::bottom}});
    if (entry == Entry::StringMoved || entry == Entry::StringByFontAngle)
        add({{"dx", &Label::dx}, {"dy", &Label::dy}});
    if (entry != Entry::StringByFontAngle)
        add({{"angle", &Label::angle}});
    if (entry == Entry::StringAt || entry == Entry::OutlineAbout || entry == Entry::OutlineAt)
        add({{"lineSpacing", &Label::lineSpacing}});
    if (entry == Entry::VerticalAbout || entry == Entry::VerticalAt)
        add({{"columnSpacing", &Label::columnSpacing}, {"charSpacing", &Label::charSpacing}});
    return numbers;
}

bool IsUsed(Entry entry, const NumberArgument& number, const Label& label)
{
    const bool isString = entry == Entry::StringInBox || entry == Entry::StringMoved ||
                          entry == Entry::StringByFontAngle || entry == Entry::StringAt;
    const bool isRich = isString && label.text.find(L"<BOL>") != std::wstring::npos;
    if (number.member == &Label::bottom)
        return false;
    if (number.member == &Label::right)
        return isRich && label.hAlign == 3;
    if (number.member == &Label::dx || number.member == &Label::dy || number.member == &Label::lineSpacing)
        return !isRich;
    return true;
}
