#include "AllocationFailure.h"

#include <memory>
#include <utility>
#include <vector>

#include <QFont>
#include <QImage>
#include <gtest/gtest.h>
#include <tests/support/TestEngine.h>

using namespace TZObjects;

namespace
{

// More allocations than any of the tested operations makes.
constexpr int kMost = 10000;

class AllocationFailureTest : public ::testing::TestWithParam<AllocationFailure::Extent>
{
protected:
    // Lets each allocation that a factory makes fail in turn, and expects null each time, with nothing left behind
    // except what Qt itself may lose.
    template <class Make>
    void ExpectNullFrom(Make make, long blocksLostByQt = 0)
    {
        // Caches are filled by what happens first.
        for (int i = 0; i < 2; ++i)
            Destroy(make());

        for (int number = 1; number < kMost; ++number)
        {
            SCOPED_TRACE(number);
            TXRefBase* made = nullptr;
            bool threw = false;
            AllocationFailure failure(number, GetParam());
            try
            {
                made = make();
            }
            catch (...)
            {
                threw = true;
            }
            failure.Stop();
            const long kept = failure.Kept();
            ASSERT_FALSE(threw);
            if (!failure.Happened())
            {
                EXPECT_NE(made, nullptr);
                Destroy(made);
                return;
            }
            EXPECT_EQ(made, nullptr);
            if (!made)
            {
                EXPECT_LE(kept, blocksLostByQt) << "blocks are left behind";
            }
            Destroy(made);
        }
        ADD_FAILURE() << "the factory never came to an end of its allocations";
    }

    // Lets each allocation that an operation makes fail in turn, and expects that no exception comes out.
    template <class Operation>
    void ExpectNoExceptionFrom(Operation operation)
    {
        operation();
        for (int number = 1; number < kMost; ++number)
        {
            SCOPED_TRACE(number);
            bool threw = false;
            AllocationFailure failure(number, GetParam());
            try
            {
                operation();
            }
            catch (...)
            {
                threw = true;
            }
            failure.Stop();
            ASSERT_FALSE(threw);
            if (!failure.Happened())
                return;
        }
        ADD_FAILURE() << "the operation never came to an end of its allocations";
    }

    TXGraphicsEngine& engine = TestEngine();

private:
    static void Destroy(TXRefBase* object) { const TXRefPtr<TXRefBase> last(object); }

    ManagerSettingsGuard settings;
};

} // namespace

TEST_P(AllocationFailureTest, PensBrushesFontsAndImages)
{
    ExpectNullFrom([this] { return engine.NewPen(); });
    ExpectNullFrom([this] { return engine.NewBrush(); });
    ExpectNullFrom([this] { return engine.NewFont(); });
    ExpectNullFrom([this] { return engine.NewImage(); });
}

TEST_P(AllocationFailureTest, Gradients)
{
    ExpectNullFrom([this] { return engine.NewLinearGradient(1, 2, 3, 4); });
    ExpectNullFrom([this] { return engine.NewRadialGradient(1, 2, 3); });
}

TEST_P(AllocationFailureTest, Regions)
{
    AllocationFailure failure(1, GetParam());
    const TXRgn* const region = engine.NewRgn();
    failure.Stop();
    EXPECT_EQ(region, nullptr);
}

TEST_P(AllocationFailureTest, SurfacesWithoutATarget)
{
    ExpectNullFrom([this] { return engine.NewGraphics(); });
    ExpectNullFrom([this] { return engine.NewGraphics(nullptr); });
}

TEST_P(AllocationFailureTest, SurfacesOnAnImage)
{
    const TXRefPtr<TXImage> image(engine.NewImage());
    image->CreateImage(16, 16, TXImage::Format_ARGB32_Premultiplied);
    // Qt loses a block when memory runs out in the middle of QPainter::begin.
    ExpectNullFrom([&] { return engine.NewGraphics(image.get()); }, 1);

    // No surface that failed on the way is left painting on the image, or told of its changes.
    EXPECT_FALSE(static_cast<QImage*>(image->GetInternalObject())->paintingActive());
    EXPECT_TRUE(image->CreateImage(8, 8, TXImage::Format_ARGB32));
    const TXRefPtr<TXGraphics> surface(engine.NewGraphics(image.get()));
    surface->fillRect(TXRect(0, 8, 0, 8), TXColor::RED_);
    EXPECT_EQ(image->GetPixel(4, 4).GetColor(), TXColor::RED_.GetColor());
}

TEST_P(AllocationFailureTest, SurfacesWithCairo)
{
    TXGraphicsEngineManager::instance("")->EnableCairoDrawing(true);
    ExpectNullFrom([this] { return engine.NewGraphics(); });
}

TEST_P(AllocationFailureTest, FactoriesOfASurface)
{
    const TXRefPtr<TXGraphics> surface(engine.NewGraphics());
    ASSERT_TRUE(surface);
    ExpectNullFrom([&] { return surface->NewPen(); });
    ExpectNullFrom([&] { return surface->NewBrush(); });
    ExpectNullFrom([&] { return surface->NewFont(); });
    ExpectNullFrom([&] { return surface->NewImage(); });
}

TEST_P(AllocationFailureTest, PenOperations)
{
    const TXRefPtr<TXPen> pen(engine.NewPen());
    ExpectNoExceptionFrom([&] { pen->Create(); });
    ExpectNoExceptionFrom(
        [&] { pen->Create(TXPen::DashLine, 2.0, TXColor(1, 2, 3, 4), TXPen::FlatCap, TXPen::MiterJoin); });
    ExpectNoExceptionFrom(
        [&]
        {
            pen->Delete();
            pen->Create();
            pen->SetPenStyle(TXPen::DotLine);
            pen->SetWidth(3.0);
            pen->SetColor(TXColor::RED_);
        });
    pen->Create();
    ExpectNoExceptionFrom([&] { pen->GetSteps(); });
}

TEST_P(AllocationFailureTest, PenSteps)
{
    const TXRefPtr<TXPen> pen(engine.NewPen());
    pen->Create();
    for (int number = 1; number < kMost; ++number)
    {
        SCOPED_TRACE(number);
        // The host's own copy is made before memory is short.
        std::vector<double> steps{1.0, 2.0, 3.0, 4.0};
        bool threw = false;
        AllocationFailure failure(number, GetParam());
        try
        {
            pen->SetSteps(std::move(steps));
            pen->GetSteps();
        }
        catch (...)
        {
            threw = true;
        }
        failure.Stop();
        ASSERT_FALSE(threw);
        if (!failure.Happened())
            break;
    }
    pen->SetSteps({1.0, 2.0});
    EXPECT_EQ(pen->GetSteps(), (std::vector<double>{1.0, 2.0}));
}

TEST_P(AllocationFailureTest, BrushOperations)
{
    const TXRefPtr<TXBrush> brush(engine.NewBrush());
    const TXRefPtr<TXImage> image(engine.NewImage());
    image->CreateImage(16, 16, TXImage::Format_ARGB32);
    ExpectNoExceptionFrom([&] { brush->Create(TXColor(1, 2, 3, 4), TXBrush::CrossHatch); });
    ExpectNoExceptionFrom([&] { brush->SetColor(TXColor::RED_); });
    ExpectNoExceptionFrom([&] { brush->SetTextureImage(image); });
    EXPECT_TRUE(brush->Create(TXColor::RED_, TXBrush::SolidBrush));
    EXPECT_EQ(brush->GetColor().GetColor(), TXColor::RED_.GetColor());
}

TEST_P(AllocationFailureTest, GradientOperations)
{
    const TXRefPtr<TXLinearGradient> linear(engine.NewLinearGradient(0, 0, 1, 1));
    const TXRefPtr<TXRadialGradient> radial(engine.NewRadialGradient(0, 0, 1));
    ExpectNoExceptionFrom([&] { linear->SetColorAt(0.5, TXColor::RED_); });
    ExpectNoExceptionFrom([&] { radial->SetColorAt(0.5, TXColor::RED_); });
}

TEST_P(AllocationFailureTest, ImageOperations)
{
    const TXRefPtr<TXImage> image(engine.NewImage());
    unsigned char memory[64] = {};
    ExpectNoExceptionFrom([&] { image->CreateImage(4, 4, TXImage::Format_ARGB32); });
    ExpectNoExceptionFrom([&] { image->CreateImage(memory, 4, 4, TXImage::Format_ARGB32); });
    ExpectNoExceptionFrom([&] { image->CreateImage(memory, 4, 4); });
    ExpectNoExceptionFrom([&] { image->CreateCompatibleImage(nullptr, 4, 4); });
    ExpectNoExceptionFrom(
        [&]
        {
            image->Fill(TXColor::RED_);
            image->Fill(1u);
            image->Fill(TXRect(0, 2, 0, 2), TXColor::RED_);
            image->SetPixel(1, 1, TXColor::RED_);
            image->GetPixel(1, 1);
        });
    EXPECT_TRUE(image->CreateImage(3, 2, TXImage::Format_ARGB32));
    EXPECT_EQ(image->GetWidth(), 3);
}

TEST_P(AllocationFailureTest, FontOperations)
{
    const TXRefPtr<TXFont> font(engine.NewFont());
    for (const bool cairo : {false, true})
    {
        TXGraphicsEngineManager::instance("")->EnableCairoDrawing(cairo);
        ExpectNoExceptionFrom([&] { font->Create(); });
        ExpectNoExceptionFrom(
            [&]
            {
                font->SetFontHeight(20);
                font->SetFontWeight(700);
                font->SetFontItalic(true);
                font->SetFontUnderline(true);
                font->SetWordSpacing(2.0);
            });
    }
    EXPECT_TRUE(font->Create());
    EXPECT_NE(font->GetInternalObject(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(MemoryIsShort, AllocationFailureTest,
                         ::testing::Values(AllocationFailure::OnlyOne, AllocationFailure::AllLater),
                         [](const auto& instance)
                         { return instance.param == AllocationFailure::OnlyOne ? "Once" : "FromThenOn"; });
