#pragma once

#include <vector>

#include <txbase/TXColor.h>
#include <txbase/TXRefBase.h>
#include <txgraphics/Export.h>

namespace TZObjects
{

/// The pen that draws lines, outlines shapes and colours labels: dash style, width, colour, end cap, line join.
///
/// A pen is empty until `Create`. On an empty pen setters do nothing and getters return neutral values. A surface
/// copies the pen in `TXGraphics::SelectPen`. To apply a later change, select the pen again. Labels through cairo are
/// the exception: they read the colour of the selected pen whenever they are drawn.
class TXGRAPHICS_API TXPen : public TXRefBase
{
public:
    /// How a line is broken into dashes.
    enum PenStyle : int
    {
        NullPen = 0,        ///< No line. Labels through Qt are black with it.
        SolidLine = 1,      ///< Unbroken.
        DashLine = 2,       ///< Dashes.
        DotLine = 3,        ///< Dots.
        DashDotLine = 4,    ///< Dash, dot.
        DashDotDotLine = 5, ///< Dash, dot, dot.
        CustomDashLine = 6  ///< The pattern of `SetSteps`.
    };

    /// How a line ends. The numbers have gaps for compatibility.
    enum PenCapStyle : int
    {
        RoundCap = 0,    ///< A half circle beyond the end point.
        SquareCap = 256, ///< A half square beyond the end point.
        FlatCap = 512    ///< Nothing beyond the end point.
    };

    /// How two segments meet. The numbers have gaps for compatibility.
    enum PenJoinStyle : int
    {
        BevelJoin = 0,   ///< A triangle fills the notch.
        RoundJoin = 256, ///< A circular arc fills the notch.
        MiterJoin = 8192 ///< The outer edges extend until they meet.
    };

    TXPen();
    ~TXPen() override;

    /// Makes the pen anew. Nothing of the old one remains, its dash pattern included.
    /// @param style the dash style; an unknown number gives `NullPen`.
    /// @param width the width in surface units; see `SetWidth`.
    /// @param color the colour, alpha included.
    /// @param cap the end cap; an unknown number gives `RoundCap`.
    /// @param join the line join; an unknown number gives `RoundJoin`.
    /// @return true, also when memory is short; the pen is empty then.
    virtual bool Create(PenStyle style, double width, TXColor color, PenCapStyle cap, PenJoinStyle join) = 0;
    /// Makes the default pen: solid, 1 wide, opaque black, with round caps and joins. @return as above.
    virtual bool Create();
    /// Empties the pen. @return true, also when the pen was empty.
    virtual bool Delete() = 0;

    /// Returns the dash style; `NullPen` for an empty pen.
    virtual PenStyle GetPenStyle() const = 0;
    /// Sets the dash style. A number outside 1 to 6 gives `NullPen`.
    virtual void SetPenStyle(PenStyle style) = 0;
    /// Returns the end cap; `RoundCap` for an empty pen.
    virtual PenCapStyle GetPenCapStyle() const = 0;
    /// Sets the end cap. An unknown number gives `RoundCap`.
    virtual void SetPenCapStyle(PenCapStyle cap) = 0;
    /// Returns the line join; `RoundJoin` for an empty pen.
    virtual PenJoinStyle GetPenJoinStyle() const = 0;
    /// Sets the line join. An unknown number gives `RoundJoin`.
    virtual void SetPenJoinStyle(PenJoinStyle join) = 0;
    /// Returns the width in surface units; 0 for an empty pen.
    virtual double GetWidth() const = 0;
    /// Sets the width in surface units. A number below 1 gives 1. A NaN is kept and draws 1 wide. A width that the
    /// backend cannot draw changes nothing; for Qt that is 32,768 and above.
    virtual void SetWidth(double width) = 0;
    /// Returns the colour; opaque black for an empty pen.
    virtual TXColor GetColor() const = 0;
    /// Sets the colour, alpha included.
    virtual void SetColor(const TXColor& color) = 0;
    /// Returns the dash pattern in the form of `SetSteps`; for a style with dashes of its own, that style's pattern.
    virtual std::vector<double> GetSteps() const = 0;
    /// Sets the dash pattern and with it the style `CustomDashLine`.
    /// @param steps the lengths of dash, gap, dash, gap and so on, in multiples of the pen's width. A gap of 1 follows
    /// the last dash of an odd pattern. An empty pattern, or one with a number that is not finite, changes nothing.
    virtual void SetSteps(std::vector<double> steps) = 0;

    /// Returns the backend's pen object, which this pen owns; null while the pen is empty.
    void* GetInternalObject() const { return internalObject; }

protected:
    void* internalObject = nullptr; ///< The backend's pen object. The backend's class owns it.
};

} // namespace TZObjects
