#pragma once

#include <vector>

#include <txbase/TXColor.h>
#include <txbase/TXRefBase.h>
#include <txgraphics/Export.h>

namespace TZObjects
{

/// The pen that outlines shapes and draws lines: dash style, width, colour, end cap, line join.
///
/// A pen is empty until `Create`. On an empty pen setters do nothing and getters answer neutral values. A surface
/// copies the pen when it is selected; later changes reach the surface when the pen is selected again.
class TXGRAPHICS_API TXPen : public TXRefBase
{
public:
    /// How the line is broken up.
    enum PenStyle : int
    {
        NullPen = 0,        ///< Draws nothing.
        SolidLine = 1,      ///< Unbroken.
        DashLine = 2,       ///< Dashes.
        DotLine = 3,        ///< Dots.
        DashDotLine = 4,    ///< Dash, dot.
        DashDotDotLine = 5, ///< Dash, dot, dot.
        CustomDashLine = 6  ///< The pattern given by `SetSteps`.
    };

    /// How a line ends.
    enum PenCapStyle : int
    {
        RoundCap = 0,    ///< A half circle beyond the end point.
        SquareCap = 256, ///< A half square beyond the end point.
        FlatCap = 512    ///< At the end point.
    };

    /// How two segments meet.
    enum PenJoinStyle : int
    {
        BevelJoin = 0,   ///< The notch is filled with a triangle.
        RoundJoin = 256, ///< The notch is filled with a circular arc.
        MiterJoin = 8192 ///< The outer edges run on until they meet.
    };

    TXPen();
    ~TXPen() override;

    /// Makes the pen afresh; nothing of an earlier configuration, dash pattern included, survives.
    /// @param style the dash style; unknown values give `NullPen`.
    /// @param width in surface units; what is below 1 becomes 1.
    /// @param color the colour, alpha included.
    /// @param cap the end cap; unknown values give `RoundCap`.
    /// @param join the line join; unknown values give `RoundJoin`.
    /// @return true.
    virtual bool Create(PenStyle style, double width, TXColor color, PenCapStyle cap, PenJoinStyle join) = 0;
    /// Makes the default pen: solid, 1 wide, opaque black, round caps and joins.
    virtual bool Create();
    /// Empties the pen. @return true, also when it was empty.
    virtual bool Delete() = 0;

    /// The dash style; `NullPen` for an empty pen.
    virtual PenStyle GetPenStyle() const = 0;
    /// Sets the dash style; values other than 1 to 6 give `NullPen`.
    virtual void SetPenStyle(PenStyle style) = 0;
    /// The end cap; `RoundCap` for an empty pen.
    virtual PenCapStyle GetPenCapStyle() const = 0;
    /// Sets the end cap; unknown values give `RoundCap`.
    virtual void SetPenCapStyle(PenCapStyle cap) = 0;
    /// The line join; `RoundJoin` for an empty pen.
    virtual PenJoinStyle GetPenJoinStyle() const = 0;
    /// Sets the line join; unknown values give `RoundJoin`.
    virtual void SetPenJoinStyle(PenJoinStyle join) = 0;
    /// The width in surface units; 0 for an empty pen.
    virtual double GetWidth() const = 0;
    /// Sets the width in surface units; what is below 1 becomes 1, so that no line is thinner than a unit. Widths that
    /// the backend cannot draw, for Qt from 32,768 on, change nothing.
    virtual void SetWidth(double width) = 0;
    /// The colour; the default colour for an empty pen.
    virtual TXColor GetColor() const = 0;
    /// Sets the colour, alpha included.
    virtual void SetColor(const TXColor& color) = 0;
    /// The dash pattern: lengths of dash, gap, dash, gap and so on, in multiples of the pen's width.
    virtual std::vector<double> GetSteps() const = 0;
    /// Sets the dash pattern, as `GetSteps` gives it, and with it the style `CustomDashLine`. An empty pattern, or one
    /// with a number that is not finite, changes nothing.
    virtual void SetSteps(std::vector<double> steps) = 0;

    /// The backend's pen object, owned by this pen; null while the pen is empty.
    void* GetInternalObject() const { return internalObject; }

protected:
    void* internalObject = nullptr; ///< The backend's pen object; the backend class owns it.
};

} // namespace TZObjects
