#pragma once

#include <string>

#include <txmap/style/operators/ParsingContext.h>

namespace txmap
{

/// Compiles an operator with its arguments: an array whose first element is the name. Null after an error.
using OperatorParser = NodePtr (*)(const Json& arguments, ParsingContext& context);

/// How an operator is compiled, or null where there is none of that name.
const OperatorParser* FindOperator(const std::string& name);

/// @name Operators with rules of their own about the types of their arguments
/// @{
NodePtr ParseLiteral(const Json& arguments, ParsingContext& context);
NodePtr ParseSemiliteral(const Json& arguments, ParsingContext& context);
NodePtr ParseAssertion(const Json& arguments, ParsingContext& context);
NodePtr ParseCoercion(const Json& arguments, ParsingContext& context);
NodePtr ParseCase(const Json& arguments, ParsingContext& context);
NodePtr ParseMatch(const Json& arguments, ParsingContext& context);
NodePtr ParseCoalesce(const Json& arguments, ParsingContext& context);
NodePtr ParseLet(const Json& arguments, ParsingContext& context);
NodePtr ParseVar(const Json& arguments, ParsingContext& context);
NodePtr ParseComparison(const Json& arguments, ParsingContext& context);
NodePtr ParseStep(const Json& arguments, ParsingContext& context);
NodePtr ParseInterpolate(const Json& arguments, ParsingContext& context);
NodePtr ParseAt(const Json& arguments, ParsingContext& context);
NodePtr ParseIn(const Json& arguments, ParsingContext& context);
NodePtr ParseIndexOf(const Json& arguments, ParsingContext& context);
NodePtr ParseSlice(const Json& arguments, ParsingContext& context);
NodePtr ParseLength(const Json& arguments, ParsingContext& context);
NodePtr ParseFormat(const Json& arguments, ParsingContext& context);
NodePtr ParseImage(const Json& arguments, ParsingContext& context);
NodePtr ParseNumberFormat(const Json& arguments, ParsingContext& context);
NodePtr ParseCollator(const Json& arguments, ParsingContext& context);
NodePtr ParseGlobalState(const Json& arguments, ParsingContext& context);
NodePtr ParseWithin(const Json& arguments, ParsingContext& context);
NodePtr ParseDistance(const Json& arguments, ParsingContext& context);
/// Every operator that has nothing but types of arguments; `OverloadedOperators` names them.
NodePtr ParseOverloaded(const Json& arguments, ParsingContext& context);
/// @}

} // namespace txmap
