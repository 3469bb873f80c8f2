#pragma once

#include <functional>
#include <optional>
#include <sstream>
#include <string>
#include <type_traits>

#include <alloca.h>
#include <gtest/gtest.h>

#include "Sides.h"

/// Both sides of a walk, and the comparison of everything about them.
class World
{
public:
    /// Gives what was printed through Qt since the last time.
    using TakeMessages = std::function<std::string()>;

    /// Makes both sides, and chooses the engine manager's settings, as the seed says.
    /// @param width of the first target of each surface.
    World(unsigned seed, int width, TakeMessages takeMessages);
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    /// Makes a call on both sides. @return what differs in the answers, or what was printed meanwhile.
    template <class Call>
    std::optional<std::string> Apply(int surface, Call call);
    /// Whether the model's calls are made with the stack half a vector register farther on from here. Edges and
    /// gradients that Qt paints differ in the last bit with the place of its buffers on the stack.
    void ShiftStack(bool shift) { stackShift = shift ? 2 * kStackUnit : kStackUnit; }
    /// What differs between the sides: pixels, painters' states or resources.
    std::optional<std::string> Difference();
    /// The same when the last call has been made: of canvases that no painter is attached from too, and in pictures.
    std::optional<std::string> DifferenceAtTheEnd();
    /// Which pixels differ. Keeps the images.
    std::string Explain();

    ModelSurface& Model(int surface) { return *model.surfaces[static_cast<std::size_t>(surface)]; }
    /// An image to draw, by the number that a side has for it.
    const ModelImage* SourceOfModel(int surface, int number);
    const ModelFont& FontOfModel(int font) const { return *model.fonts[static_cast<std::size_t>(font)]; }
    /// Whether any pixel has changed, or an image has given way to another one, since the last call of this.
    /// @param fromColumn pixels left of it do not count.
    bool LeftInk(int fromColumn = 0);

private:
    struct ImagePair
    {
        std::string name;
        const QImage* actual;
        const QImage* expected;
    };
    std::vector<ImagePair> ImagePairs();
    std::string DifferingState();
    std::string DifferingResources();
    void FinishCanvases();

    static constexpr std::size_t kStackUnit = 16;

    TakeMessages takeMessages;
    Side<UnderTest> tested;
    Side<Modelled> model;
    std::size_t stackShift = kStackUnit;
    bool finished = false;
    std::size_t inkBefore = 0;
};

/// What an operation answers that answers nothing.
struct NoAnswer
{
    friend bool operator==(NoAnswer, NoAnswer) { return true; }
    friend std::ostream& operator<<(std::ostream& out, NoAnswer) { return out << "nothing"; }
};

template <class Call, class OneSide>
auto AnswerOf(const Call& call, OneSide& side)
{
    if constexpr (std::is_void_v<decltype(call(side))>)
    {
        call(side);
        return NoAnswer();
    }
    else
        return call(side);
}

/// The same with so many bytes of the stack taken before.
template <class Call, class OneSide>
[[gnu::noinline]] auto AnswerOf(const Call& call, OneSide& side, std::size_t stackBytes)
{
    *static_cast<volatile char*>(alloca(stackBytes)) = 0;
    return AnswerOf(call, side);
}

template <class Call>
std::optional<std::string> World::Apply(int surface, Call call)
{
    tested.current = model.current = static_cast<std::size_t>(surface);
    const auto actual = AnswerOf(call, tested);
    const std::string printed = takeMessages();
    const auto expected = AnswerOf(call, model, stackShift);
    const std::string printedByModel = takeMessages();
    const std::string warning = Model(surface).TakeQtWarning();
    if (printed != warning)
        return "printed \"" + printed + "\" where \"" + warning + "\" was expected";
    if (printedByModel != warning)
        return "the model printed \"" + printedByModel + '"';
    if (actual == expected)
        return std::nullopt;
    return "answered " + ::testing::PrintToString(actual) + " where " + ::testing::PrintToString(expected) +
           " was expected";
}
