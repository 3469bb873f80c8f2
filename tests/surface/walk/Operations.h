#pragma once

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include <tests/txpluginqt/graphics/RandomCases.h>

#include "Stretch.h"
#include "World.h"

/// One step of a walk: an operation with its arguments, made on one of the surfaces. Steps do not depend on each other,
/// so that any of them can be left out.
struct Step
{
    const char* name;
    int surface;
    /// Makes it on both sides. @return what differs in the answers.
    std::function<std::optional<std::string>(World&)> run;
    std::function<std::string()> describe;
};

/// A row of the table of operations.
struct Operation
{
    const char* name;
    int weight; ///< How often it is chosen, in relation to the others.
    std::function<Step(Random&, int surface, const Stretch&)> make;
};

/// For rows that need nothing done first.
struct NoPreparation
{
    template <class... Arguments>
    bool operator()(World&, int, const Arguments&...) const
    {
        return true;
    }
};

/// A row whose @p generate makes a tuple of arguments, and whose @p call makes the call with a side and these. The call
/// is written once: the model's operations have the same names and arguments.
/// @param prepare is called first, with the world, the number of the surface, and the arguments. Where it returns false
/// the step is left out.
template <class Generate, class Call, class Prepare = NoPreparation>
Operation Row(const char* name, int weight, Generate generate, Call call, Prepare prepare = {})
{
    const auto make = [=](Random& random, int surface, const Stretch& stretch)
    {
        auto generated = generate(random);
        std::apply([&](auto&... argument) { (stretch.Apply(argument), ...); }, generated);
        const auto arguments = generated;
        const auto run = [=](World& world) -> std::optional<std::string>
        {
            if (!std::apply([&](const auto&... argument) { return prepare(world, surface, argument...); }, arguments))
                return std::nullopt;
            return world.Apply(
                surface, [&](auto& side)
                { return std::apply([&](const auto&... argument) { return call(side, argument...); }, arguments); });
        };
        const auto describe = [=]
        { return "surface " + std::to_string(surface) + ": " + name + ::testing::PrintToString(arguments); };
        return Step{name, surface, run, describe};
    };
    return {name, weight, make};
}

/// A row whose call needs nothing of a side but the surface.
template <class Generate, class Call, class Prepare = NoPreparation>
Operation SurfaceRow(const char* name, int weight, Generate generate, Call call, Prepare prepare = {})
{
    return Row(
        name, weight, generate, [=](auto& side, const auto&... argument) { return call(side.Surface(), argument...); },
        prepare);
}

/// For operations without arguments.
inline std::tuple<> Nothing(Random&) { return {}; }

/// Makes one tuple of the tuples of several generators, in this order.
template <class First, class... Rest>
auto Joined(First first, Rest... rest)
{
    return [=](Random& random)
    {
        auto head = first(random);
        if constexpr (sizeof...(rest) == 0)
            return head;
        else
            return std::tuple_cat(std::move(head), Joined(rest...)(random));
    };
}

/// A rectangle on or near the surface, of any size.
TZObjects::TXRect SomeRect(Random& random);
/// The text of a label of any kind, often enough with coloured glyphs.
std::wstring SomeText(Random& random);

// The table, by topic.
std::vector<Operation> StateOperations();
std::vector<Operation> LifeOperations();
std::vector<Operation> ResourceOperations();
std::vector<Operation> PixelOperations();
std::vector<Operation> ShapeOperations();
std::vector<Operation> PathOperations();
std::vector<Operation> ClipOperations();
std::vector<Operation> MarkerOperations();
std::vector<Operation> LabelOperations();
std::vector<Operation> FontOperations();
std::vector<Operation> BackendOperations();
std::vector<Operation> ImageOperations();

// How arguments are printed.
namespace TZObjects
{
void PrintTo(const TXPoint& point, std::ostream* out);
void PrintTo(const TXRect& rect, std::ostream* out);
void PrintTo(const TXColor& color, std::ostream* out);
void PrintTo(const TXString& text, std::ostream* out);
void PrintTo(const TXGraphics::stGradientParams& gradient, std::ostream* out);
} // namespace TZObjects
void PrintTo(const Rings& rings, std::ostream* out);
void PrintTo(const ImagePart& part, std::ostream* out);
