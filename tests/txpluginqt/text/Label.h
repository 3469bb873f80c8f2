#pragma once

#include <string>
#include <vector>

#include <QString>

#include <txgraphics/txgraphics.h>

#include "LabelFont.h"

/// The operations that draw labels, by the coordinates that they take.
enum class Entry
{
    StringInBox,       ///< `DrawString(ox, oy, left, right, top, bottom, ...)`
    StringMoved,       ///< `DrawString(x, y, dx, dy, ..., angle, scale)`
    StringByFontAngle, ///< `DrawString(x, y, dx, dy, ..., scale)`
    StringAt,          ///< `DrawString(x, y, ...)`
    OutlineAbout,      ///< `DrawOutlineString(ox, oy, left, top, ...)`
    OutlineAt,         ///< `DrawOutlineString(x, y, ...)`
    VerticalAbout,     ///< `DrawVerticalString(ox, oy, left, top, ...)`
    VerticalAt         ///< `DrawVerticalString(x, y, ...)`
};

constexpr Entry kAllEntries[] = {Entry::StringInBox,  Entry::StringMoved, Entry::StringByFontAngle, Entry::StringAt,
                                 Entry::OutlineAbout, Entry::OutlineAt,   Entry::VerticalAbout,     Entry::VerticalAt};

const char* NameOf(Entry entry);
std::ostream& operator<<(std::ostream& out, Entry entry);

/// The arguments of every entry; each entry takes those that it has.
struct Label
{
    std::wstring text = L"Main Street";
    FontChoice font;
    int vAlign = 1;
    int hAlign = 1;
    double x = 20.0; ///< or ox
    double y = 30.0; ///< or oy
    double left = 14.0;
    double right = 130.0;
    double top = 12.0;
    double bottom = 70.0;
    double dx = 4.0;
    double dy = -3.0;
    double angle = 0.0;
    double scale = 1.0;
    double lineSpacing = 0.0;
    double columnSpacing = 0.0;
    double charSpacing = 0.0;
    bool halo = true;
    TZObjects::TXColor fill{200, 40, 10, 255};

    QString Text() const { return QString::fromStdWString(text); }
};

/// Describes what distinguishes a label, for the messages of failures.
std::ostream& operator<<(std::ostream& out, const Label& label);

/// Calls the entry of the surface under test.
bool Draw(TZObjects::TXGraphics& surface, Entry entry, const Label& label);

/// One of the numbers that an entry takes.
struct NumberArgument
{
    const char* name;
    double Label::*member;
};

/// False for a number that the entry takes and does not use for such a label.
bool IsUsed(Entry entry, const NumberArgument& number, const Label& label);

/// All numbers that the entry takes.
std::vector<NumberArgument> NumbersOf(Entry entry);
