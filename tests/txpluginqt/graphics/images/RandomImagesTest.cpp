#include <functional>
#include <map>

#include "ImageTest.h"
#include "RandomImages.h"

using namespace TZObjects;

namespace
{

constexpr int kCases = 1500;

/// How often each way was gone, so that a test can say that none was missed.
struct Ways
{
    std::map<ImageRoute, int> routes;
    int whole = 0;
    int cropped = 0;
    int scaled = 0;
    int unscaled = 0;

    void Note(const ImageOutcome& outcome)
    {
        ++routes[outcome.route];
        if (outcome.route != ImageRoute::Placed)
            return;
        ++(outcome.whole ? whole : cropped);
        ++(outcome.scaled ? scaled : unscaled);
    }
};

/// What one case draws with.
struct RandomRun
{
    Random& random;
    Twins& twins;
    TXGraphics& surface; ///< The first twin's, or another one to which its painter is attached.
    TXImage& source;
    QSize target;
};

/// A surface that paints with the first twin's painter, but has a target image of its own, by whose size it clips.
TXRefPtr<TXGraphics> AttachedSurface(Random& random, Twins& twins)
{
    const TXRefPtr<TXImage> image = TestEngine().NewImage();
    image->CreateImage(random.Int(40, 90), random.Int(30, 80), TXImage::Format_ARGB32);
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
    surface->SelectImage(image);
    image->Fill(TXColor(1, 2, 3, 4));
    surface->Attach(&twins.SurfacePainter());
    return surface;
}

class RandomImagesTest : public ImageTest
{
protected:
    /// Runs random cases on every kind of target. @p draw draws with both and returns what its call comes to.
    static Ways RunCases(unsigned seed, const std::function<ImageOutcome(const RandomRun&)>& draw)
    {
        constexpr TXImage::Format targets[] = {TXImage::Format_RGB32, TXImage::Format_ARGB32,
                                               TXImage::Format_ARGB32_Premultiplied, TXImage::Format_RGB16};
        constexpr TXImage::Format rareTargets[] = {TXImage::Format_RGB888, TXImage::Format_RGB30,
                                                   TXImage::Format_RGB444, TXImage::Format_Grayscale8};
        Ways ways;
        int drawn = 0;
        for (int i = 0; i < kCases && !HasFailure(); ++i)
        {
            Random random(seed * 100003u + static_cast<unsigned>(i));
            const TXImage::Format format = i % 10 ? targets[i % 4] : rareTargets[i / 10 % 4];
            SCOPED_TRACE(::testing::Message() << "case " << i << ", target format " << format);
            Twins twins(80, 64, format);
            const QImage before = twins.Expected().copy();
            random.ChangeState(twins);
            ChangeImageState(random, twins);
            const bool attached = random.Chance(30);
            const TXRefPtr<TXGraphics> other = attached ? AttachedSurface(random, twins) : TXRefPtr<TXGraphics>();
            TXGraphics& surface = attached ? *other : twins.Surface();
            const SourceImage source = SomeSource(random);
            ways.Note(DrawOne({random, twins, surface, *source.image, PixelsOf(*surface.GetImage()).size()}, draw));
            if (attached)
            {
                EXPECT_EQ(surface.GetImage()->GetPixel(10, 10).GetColor(), TXColor(1, 2, 3, 4).GetColor());
            }
            drawn += twins.Expected() != before;
        }
        EXPECT_GE(drawn, kCases / 5) << "too few cases drew anything to say much";
        return ways;
    }

    static Ways RunOperation(unsigned seed, ImageOperation operation)
    {
        return RunCases(seed,
                        [&](const RandomRun& run)
                        {
                            const ImageCall call = SomeCall(run.random, run.target, PixelsOf(run.source).size());
                            SCOPED_TRACE(Text(call));
                            const bool result = CallSurface(run.surface, operation, call, &run.source);
                            const ImageOutcome expected =
                                PaintDirectly(run.twins.Direct(), run.target, operation, call, PixelsOf(run.source));
                            EXPECT_EQ(result, expected.result);
                            EXPECT_TRUE(SameInAll(run.twins));
                            return expected;
                        });
    }

    static void ExpectAllWays(Ways ways)
    {
        EXPECT_GE(ways.routes[ImageRoute::InPlace], 50);
        EXPECT_GE(ways.routes[ImageRoute::Outside], 50);
        EXPECT_GE(ways.routes[ImageRoute::Collapsed], 15);
        EXPECT_GE(ways.routes[ImageRoute::Placed], 300);
        EXPECT_GE(ways.whole, 25);
        EXPECT_GE(ways.cropped, 150);
        EXPECT_GE(ways.scaled, 150);
        EXPECT_GE(ways.unscaled, 40);
    }

private:
    /// Draws once, and sees that the source is only read.
    static ImageOutcome DrawOne(const RandomRun& run, const std::function<ImageOutcome(const RandomRun&)>& draw)
    {
        const QImage& pixels = PixelsOf(run.source);
        const QImage before = pixels.copy();
        const uchar* const place = pixels.constBits();
        SCOPED_TRACE(::testing::Message() << "source " << pixels.width() << " x " << pixels.height() << ", format "
                                          << pixels.format() << ", ratio " << pixels.devicePixelRatio());
        const ImageOutcome outcome = draw(run);
        EXPECT_EQ(pixels, before);
        EXPECT_EQ(pixels.constBits(), place);
        return outcome;
    }

    static std::string Text(const ImageCall& call)
    {
        const auto text = [](const TXRect& r)
        { return QString("%1 %2 %3 %4").arg(r.left).arg(r.right).arg(r.top).arg(r.bottom); };
        return QString("from %1 to %2, opacity %3, angle %4")
            .arg(text(call.src), text(call.dst))
            .arg(call.opacity)
            .arg(call.angle)
            .toStdString();
    }
};

TEST_F(RandomImagesTest, DrawnFromRectangleToRectangle) { ExpectAllWays(RunOperation(350, ImageOperation::Draw)); }

TEST_F(RandomImagesTest, DrawnRotated) { ExpectAllWays(RunOperation(351, ImageOperation::Rotate)); }

TEST_F(RandomImagesTest, DrawnWhole)
{
    const Ways ways = RunCases(352,
                               [](const RandomRun& run)
                               {
                                   const QImage& pixels = PixelsOf(run.source);
                                   const TXRect whole(0, pixels.width(), 0, pixels.height());
                                   const double opacity = SomeOpacity(run.random);
                                   EXPECT_TRUE(run.surface.DrawImage(&run.source, opacity));
                                   const ImageOutcome expected =
                                       PaintDirectly(run.twins.Direct(), run.target, ImageOperation::Draw,
                                                     {whole, whole, opacity, 0.0}, pixels);
                                   EXPECT_TRUE(SameInAll(run.twins));
                                   return expected;
                               });
    EXPECT_EQ(ways.routes.at(ImageRoute::InPlace), kCases);
}

} // namespace
