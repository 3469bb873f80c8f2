#include <txmap/style/ExpressionNode.h>

namespace txmap
{

bool ExpressionNode::IsConstant() const
{
    bool constant = OwnUses() == UsesNothing;
    ForEachChild([&](const ExpressionNode& child) { constant = constant && child.Constant(); });
    return constant;
}

unsigned AllUses(const ExpressionNode& node)
{
    unsigned uses = node.OwnUses();
    node.ForEachChild([&](const ExpressionNode& child) { uses |= AllUses(child); });
    return uses;
}

} // namespace txmap
