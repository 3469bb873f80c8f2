#pragma once

#include <vector>

#include <txmap/style/ExpressionNode.h>
#include <txmap/style/operators/Interpolation.h>

namespace txmap
{

/// The outputs of a curve, each from its input on.
struct CurveStops
{
    std::vector<double> inputs; ///< Ascending.
    std::vector<NodePtr> outputs;
};

/// What curves have in common: outputs that depend on where an input lies between the stops.
class CurveNode : public ExpressionNode
{
public:
    CurveNode(const ExpressionType& type, NodePtr input, CurveStops stops, const std::string& key)
        : ExpressionNode(type, key), input(std::move(input)), stops(std::move(stops))
    {
    }

    void ForEachChild(const Visitor& visit) const override
    {
        visit(*input);
        for (const NodePtr& output : stops.outputs)
            visit(*output);
    }
    /// Whether the zoom alone is the input.
    bool IsZoomCurve() const;
    virtual bool IsInterpolation() const = 0;

    const CurveStops& Stops() const { return stops; }

protected:
    double Input(const EvaluationContext& context) const { return NumberOf(*input, context); }
    /// The last stop that is not after the value; the first if all are. @throw EvaluationError if it is no number.
    std::size_t StopAt(double value) const;

    NodePtr input;
    CurveStops stops;
};

class StepNode : public CurveNode
{
public:
    using CurveNode::CurveNode;

    Value Evaluate(const EvaluationContext& context) const override { return Choose(context).Evaluate(context); }
    const Value& Refer(const EvaluationContext& context, Value& scratch) const override
    {
        return Choose(context).Refer(context, scratch);
    }
    bool IsInterpolation() const override { return false; }
    NodePtr AtZoom(double zoom) const override;

private:
    const ExpressionNode& Choose(const EvaluationContext& context) const;
};

class InterpolationNode : public CurveNode
{
public:
    InterpolationNode(const ExpressionType& type, NodePtr input, CurveStops stops, const CurveShape& shape,
                      ColorSpace space, const std::string& key)
        : CurveNode(type, std::move(input), std::move(stops), key), shape(shape), space(space)
    {
    }

    Value Evaluate(const EvaluationContext& context) const override;
    bool IsInterpolation() const override { return true; }
    NodePtr AtZoom(double zoom) const override;

private:
    CurveShape shape;
    ColorSpace space;
};

} // namespace txmap
