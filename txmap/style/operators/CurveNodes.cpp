#include <txmap/style/operators/CurveNodes.h>

#include <algorithm>
#include <cmath>

#include <txmap/style/operators/OverloadedOperator.h>

namespace txmap
{
namespace
{

Value MixOutputs(const ExpressionNode& node, const Value& from, const Value& to, double position, ColorSpace space)
{
    try
    {
        return MixValues(from, to, position, space);
    }
    catch (const std::runtime_error& error)
    {
        throw EvaluationError(node.Key(), error.what());
    }
}

/// A place between two outputs that is known already.
class MixNode : public ExpressionNode
{
public:
    MixNode(const ExpressionNode& curve, NodePtr from, NodePtr to, double position, ColorSpace space)
        : ExpressionNode(curve.Type(), curve.Key()), from(std::move(from)), to(std::move(to)), position(position),
          space(space)
    {
    }

    Value Evaluate(const EvaluationContext& context) const override
    {
        Value fromScratch;
        Value toScratch;
        const Value& a = from->Refer(context, fromScratch);
        return MixOutputs(*this, a, to->Refer(context, toScratch), position, space);
    }
    void ForEachChild(const Visitor& visit) const override
    {
        visit(*from);
        visit(*to);
    }

private:
    NodePtr from;
    NodePtr to;
    double position;
    ColorSpace space;
};

} // namespace

bool CurveNode::IsZoomCurve() const
{
    const auto* call = dynamic_cast<const OverloadedNode*>(input.get());
    return call && call->Name() == "zoom";
}

std::size_t CurveNode::StopAt(double value) const
{
    if (std::isnan(value))
        Fail("Input is not a number.");
    const auto after = std::upper_bound(stops.inputs.begin(), stops.inputs.end(), value);
    return after == stops.inputs.begin() ? 0 : static_cast<std::size_t>(after - stops.inputs.begin()) - 1;
}

const ExpressionNode& StepNode::Choose(const EvaluationContext& context) const
{
    return *stops.outputs[stops.outputs.size() == 1 ? 0 : StopAt(Input(context))];
}

NodePtr StepNode::AtZoom(double zoom) const { return IsZoomCurve() ? stops.outputs[StopAt(zoom)] : nullptr; }

Value InterpolationNode::Evaluate(const EvaluationContext& context) const
{
    const auto& [inputs, outputs] = stops;
    if (outputs.size() == 1)
        return outputs.front()->Evaluate(context);
    const double value = Input(context);
    if (value <= inputs.front())
        return outputs.front()->Evaluate(context);
    if (value >= inputs.back())
        return outputs.back()->Evaluate(context);
    const std::size_t stop = StopAt(value);
    Value fromScratch;
    Value toScratch;
    const Value& from = outputs[stop]->Refer(context, fromScratch);
    const Value& to = outputs[stop + 1]->Refer(context, toScratch);
    return MixOutputs(*this, from, to, shape.Position(value, inputs[stop], inputs[stop + 1]), space);
}

NodePtr InterpolationNode::AtZoom(double zoom) const
{
    if (!IsZoomCurve() || std::isnan(zoom))
        return nullptr;
    const std::size_t stop = StopAt(zoom);
    if (zoom <= stops.inputs.front() || stop + 1 == stops.inputs.size())
        return stops.outputs[stop];
    return std::make_shared<MixNode>(*this, stops.outputs[stop], stops.outputs[stop + 1],
                                     shape.Position(zoom, stops.inputs[stop], stops.inputs[stop + 1]), space);
}

} // namespace txmap
