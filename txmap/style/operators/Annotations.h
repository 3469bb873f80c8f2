#pragma once

#include <string>
#include <vector>

#include <txmap/style/ExpressionNode.h>

namespace txmap
{

/// The first of these that has the type; an error where none has.
NodePtr MakeAssertion(const ExpressionType& type, std::vector<NodePtr> inputs, const std::string& key);
/// The first of these that can be converted to the type; an error where none can.
NodePtr MakeCoercion(const ExpressionType& type, std::vector<NodePtr> inputs, const std::string& key);

} // namespace txmap
