#pragma once

#include <txgraphics/TXPen.h>

class QPen;

namespace TZObjects
{

/// A pen over a `QPen`, which it owns; the `QPen` is absent until `Create`.
class TXPenQT final : public TXPen
{
public:
    TXPenQT();
    ~TXPenQT() override;
    TXPenQT(const TXPenQT&) = delete;
    TXPenQT& operator=(const TXPenQT&) = delete;

    using TXPen::Create;
    bool Create(PenStyle style, double width, TXColor color, PenCapStyle cap, PenJoinStyle join) override;
    bool Delete() override;
    PenStyle GetPenStyle() const override;
    void SetPenStyle(PenStyle style) override;
    PenCapStyle GetPenCapStyle() const override;
    void SetPenCapStyle(PenCapStyle cap) override;
    PenJoinStyle GetPenJoinStyle() const override;
    void SetPenJoinStyle(PenJoinStyle join) override;
    double GetWidth() const override;
    void SetWidth(double width) override;
    TXColor GetColor() const override;
    void SetColor(const TXColor& color) override;
    std::vector<double> GetSteps() const override;
    void SetSteps(std::vector<double> steps) override;

private:
    QPen* Pen() const;
    template <class Change>
    void ChangePen(Change change);

    bool shortOfMemory = false; // since Create
};

} // namespace TZObjects
