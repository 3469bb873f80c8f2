#include <tests/txpluginqt/resources/ResourceTest.h>

#include <QPainter>

using namespace TZObjects;

namespace
{

class EngineFactoriesTest : public ResourceTest
{
protected:
    TXGraphicsEngine& engine = TestEngine();
};

// Two calls make two objects, and neither has a reference yet: the first reference given and taken back destroys it.
template <class Make>
void ExpectNewObjectsWithoutReference(Make make)
{
    auto* const first = make();
    auto* const second = make();
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);
    first->AddRef();
    EXPECT_TRUE(first->Release());
    second->AddRef();
    EXPECT_TRUE(second->Release());
}

} // namespace

TEST_F(EngineFactoriesTest, TheEngineNamesItself)
{
    EXPECT_EQ(engine.GetName().toUTF8(), "QT");
    EXPECT_EQ(engine.GetVersion().toUTF8(), "0.1");
    EXPECT_EQ(engine.GetDescription().toUTF8(), "");
}

TEST_F(EngineFactoriesTest, ResourcesAreNewObjectsWithoutReference)
{
    ExpectNewObjectsWithoutReference([this] { return engine.NewBrush(); });
    ExpectNewObjectsWithoutReference([this] { return engine.NewPen(); });
    ExpectNewObjectsWithoutReference([this] { return engine.NewFont(); });
    ExpectNewObjectsWithoutReference([this] { return engine.NewImage(); });
    ExpectNewObjectsWithoutReference([this] { return engine.NewLinearGradient(1, 2, 3, 4); });
    ExpectNewObjectsWithoutReference([this] { return engine.NewRadialGradient(1, 2, 3); });
}

TEST_F(EngineFactoriesTest, SurfacesAreNewObjectsWithoutReference)
{
    const TXRefPtr<TXImage> image(engine.NewImage());
    image->CreateImage(4, 4, TXImage::Format_ARGB32_Premultiplied);
    ExpectNewObjectsWithoutReference([this] { return engine.NewGraphics(); });
    ExpectNewObjectsWithoutReference([this] { return engine.NewGraphics(nullptr); });
    const TXRefPtr<TXGraphics> onImage(engine.NewGraphics(image.get()));
    EXPECT_TRUE(onImage);
}

TEST_F(EngineFactoriesTest, RegionsAreNullEveryTime)
{
    EXPECT_EQ(engine.NewRgn(), nullptr);
    EXPECT_EQ(engine.NewRgn(), nullptr);
}

TEST_F(EngineFactoriesTest, ASurfaceHasTheSameFactories)
{
    const TXRefPtr<TXGraphics> surface(engine.NewGraphics());
    ASSERT_TRUE(surface);
    ExpectNewObjectsWithoutReference([&] { return surface->NewBrush(); });
    ExpectNewObjectsWithoutReference([&] { return surface->NewPen(); });
    ExpectNewObjectsWithoutReference([&] { return surface->NewFont(); });
    ExpectNewObjectsWithoutReference([&] { return surface->NewImage(); });

    const TXRefPtr<TXPen> pen(surface->NewPen());
    EXPECT_EQ(pen->GetInternalObject(), nullptr);
    const TXRefPtr<TXBrush> brush(surface->NewBrush());
    EXPECT_EQ(brush->GetInternalObject(), nullptr);
    const TXRefPtr<TXFont> font(surface->NewFont());
    EXPECT_EQ(font->GetInternalObject(), nullptr);
    const TXRefPtr<TXImage> image(surface->NewImage());
    EXPECT_EQ(image->GetInternalObject(), nullptr);
}

TEST_F(EngineFactoriesTest, TheEnginesAntialiasingSwitchChangesNothing)
{
    const auto hintsOfANewSurface = [this]
    {
        const TXRefPtr<TXGraphics> surface(engine.NewGraphics());
        EXPECT_TRUE(surface && surface->CreateCompatibleGraphics(8, 8));
        return static_cast<QPainter*>(surface->GetInteralObject())->renderHints();
    };
    TXGraphicsEngineManager* const manager = TXGraphicsEngineManager::instance("");
    for (const bool managed : {true, false})
    {
        manager->EnableAntialiasing(managed);
        const QPainter::RenderHints before = hintsOfANewSurface();
        for (const bool on : {false, true})
        {
            engine.EnableAntialiasing(on);
            EXPECT_EQ(manager->AntialiasingEnabled(), managed);
            EXPECT_EQ(hintsOfANewSurface(), before);
        }
    }
}
