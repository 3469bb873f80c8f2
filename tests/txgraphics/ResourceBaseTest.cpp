#include <cstddef>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>
#include <txgraphics/txgraphics.h>

#include "ResourceDoubles.h"

using namespace TZObjects;

namespace
{

/// The backend's object is null until the backend sets it, and is handed out as it is.
template <class Resource>
void ExpectHandsOutInternalObject(Resource& resource)
{
    EXPECT_EQ(resource.GetInternalObject(), nullptr);
    int object = 0;
    resource.SetInternalObject(&object);
    EXPECT_EQ(resource.GetInternalObject(), &object);
    resource.SetInternalObject(nullptr);
    EXPECT_EQ(resource.GetInternalObject(), nullptr);
}

/// Whether places lie one after another, as pointers and doubles do without gaps.
void ExpectContiguous(const std::vector<const void*>& places)
{
    for (std::size_t i = 1; i < places.size(); ++i)
        EXPECT_EQ(static_cast<const char*>(places[i]) - static_cast<const char*>(places[i - 1]), 8);
}

using Numbers = std::vector<double>;

static_assert(std::is_copy_constructible_v<LinearGradientDouble>);

} // namespace

TEST(ResourceBase, AllHandOutTheBackendsObject)
{
    PenDouble pen;
    BrushDouble brush;
    FontDouble font;
    ImageDouble image;
    RgnDouble region;
    LinearGradientDouble linear(1, 2, 3, 4);
    RadialGradientDouble radial(1, 2, 3);
    ExpectHandsOutInternalObject(pen);
    ExpectHandsOutInternalObject(brush);
    ExpectHandsOutInternalObject(font);
    ExpectHandsOutInternalObject(image);
    ExpectHandsOutInternalObject(region);
    ExpectHandsOutInternalObject(linear);
    ExpectHandsOutInternalObject(radial);
}

TEST(ResourceBase, PenByDefaultIsSolidOneWideBlackAndRound)
{
    PenDouble pen;
    EXPECT_TRUE(static_cast<TXPen&>(pen).Create());
    EXPECT_EQ(pen.created, 1);
    EXPECT_EQ(pen.style, TXPen::SolidLine);
    EXPECT_EQ(pen.width, 1.0);
    EXPECT_EQ(pen.color.GetColor(), 0xFF000000u);
    EXPECT_EQ(pen.cap, TXPen::RoundCap);
    EXPECT_EQ(pen.join, TXPen::RoundJoin);
}

TEST(ResourceBase, PenByDefaultAnswersAsTheFullCreate)
{
    PenDouble pen;
    pen.answer = false;
    EXPECT_FALSE(static_cast<TXPen&>(pen).Create());
}

TEST(ResourceBase, FontIsUprightUntilTheModeIsSet)
{
    FontDouble font;
    EXPECT_EQ(font.GetFontItalicMode(), TXFont::ItalicNone);
    for (const TXFont::TXItalicMode mode : {TXFont::ItalicSlant, TXFont::ItalicFace, TXFont::ItalicNone})
    {
        font.SetFontItalicMode(mode);
        EXPECT_EQ(font.GetFontItalicMode(), mode);
    }
}

TEST(ResourceBase, GradientsKeepTheirCoordinates)
{
    EXPECT_EQ(LinearGradientDouble(1.5, 2.5, 3.5, 4.5).Numbers(), (Numbers{1.5, 2.5, 3.5, 4.5}));
    EXPECT_EQ(RadialGradientDouble(1.5, 2.5, 3.5).Numbers(), (Numbers{1.5, 2.5, 3.5}));
}

TEST(ResourceBase, GradientsKeepTheBackendsObjectBeforeTheCoordinates)
{
    ExpectContiguous(LinearGradientDouble(1, 2, 3, 4).Places());
    ExpectContiguous(RadialGradientDouble(1, 2, 3).Places());
}

TEST(ResourceBase, CopyOfALinearGradientRefersToTheSameObject)
{
    int object = 0;
    LinearGradientDouble original(1.5, 2.5, 3.5, 4.5);
    original.SetInternalObject(&object);
    LinearGradientDouble copy(original);
    EXPECT_EQ(copy.Numbers(), original.Numbers());
    EXPECT_EQ(copy.GetInternalObject(), &object);
}

TEST(ResourceBase, CopyOfACountedGradientHasACountOfItsOwn)
{
    const TXRefPtr<LinearGradientDouble> original = new LinearGradientDouble(1, 2, 3, 4);
    const TXRefPtr<LinearGradientDouble> another = original;
    TXLinearGradient* const copy = new LinearGradientDouble(*original);
    copy->AddRef();
    EXPECT_TRUE(copy->Release());
}

TEST(ResourceBase, GradientsAreDestroyedThroughTheirBase)
{
    class Mortal : public LinearGradientDouble
    {
    public:
        explicit Mortal(int& deaths) : LinearGradientDouble(0, 0, 1, 1), deaths(deaths) {}
        Mortal(const Mortal&) = delete;
        Mortal& operator=(const Mortal&) = delete;
        ~Mortal() override { ++deaths; }

    private:
        int& deaths;
    };

    int deaths = 0;
    const TXGradient* const gradient = new Mortal(deaths);
    delete gradient;
    EXPECT_EQ(deaths, 1);
    TXRefPtr<TXGradient> held = new Mortal(deaths);
    held = nullptr;
    EXPECT_EQ(deaths, 2);
}

TEST(ResourceBase, AllFitIntoAReferenceToTheirBase)
{
    const std::vector<TXRefPtr<TXRefBase>> all = {
        TXRefPtr<TXPen>(new PenDouble),   TXRefPtr<TXBrush>(new BrushDouble),
        TXRefPtr<TXFont>(new FontDouble), TXRefPtr<TXImage>(new ImageDouble),
        TXRefPtr<TXRgn>(new RgnDouble),   TXRefPtr<TXGradient>(new RadialGradientDouble(0, 0, 1))};
    for (const TXRefPtr<TXRefBase>& one : all)
        EXPECT_TRUE(one);
}
