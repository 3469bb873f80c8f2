#include "AllocationFailure.h"

#include <QFont>
#include <gtest/gtest.h>
#include <tests/support/TestEngine.h>

using namespace TZObjects;

namespace
{

// How many blocks more are allocated after the work than before. What happens first fills caches, so it is done twice.
template <class Work>
long BlocksKeptBy(Work work)
{
    work();
    const AllocationFailure none(0, AllocationFailure::OnlyOne);
    work();
    return none.Kept();
}

constexpr char kMissingFile[] = "/no such folder/no such file.png";

} // namespace

TEST(AllocationCountTest, ADestroyedPenLeavesNothingBehind)
{
    const long kept = BlocksKeptBy(
        []
        {
            const TXRefPtr<TXPen> pen(TestEngine().NewPen());
            pen->Create();
            pen->Create(TXPen::DashLine, 2.0, TXColor(1, 2, 3, 4), TXPen::FlatCap, TXPen::MiterJoin);
            pen->SetSteps({1.0, 2.0});
            pen->GetSteps();
        });
    EXPECT_EQ(kept, 0);
}

TEST(AllocationCountTest, ADestroyedBrushLeavesNothingBehind)
{
    const long kept = BlocksKeptBy(
        []
        {
            const TXRefPtr<TXImage> image(TestEngine().NewImage());
            image->CreateImage(8, 8, TXImage::Format_ARGB32);
            const TXRefPtr<TXBrush> brush(TestEngine().NewBrush());
            brush->Create(TXColor(1, 2, 3, 4), TXBrush::CrossHatch);
            brush->SetTextureImage(image);
            brush->Create(TXColor(1, 2, 3, 4), TXBrush::SolidBrush);
            brush->SetTextureImage(image);
        });
    EXPECT_EQ(kept, 0);
}

TEST(AllocationCountTest, DestroyedGradientsLeaveNothingBehind)
{
    const long kept = BlocksKeptBy(
        []
        {
            const TXRefPtr<TXLinearGradient> linear(TestEngine().NewLinearGradient(0, 0, 1, 1));
            linear->SetColorAt(0.5, TXColor::RED_);
            const TXRefPtr<TXRadialGradient> radial(TestEngine().NewRadialGradient(0, 0, 1));
            radial->SetColorAt(0.5, TXColor::RED_);
        });
    EXPECT_EQ(kept, 0);
}

TEST(AllocationCountTest, ADestroyedImageLeavesNothingBehind)
{
    const long kept = BlocksKeptBy(
        []
        {
            unsigned char memory[256] = {};
            const TXRefPtr<TXImage> image(TestEngine().NewImage());
            image->CreateImage(8, 8, TXImage::Format_ARGB32);
            image->CreateImage(memory, 8, 8, TXImage::Format_ARGB32);
            image->CreateImage(memory, 8, 8);
            image->CreateCompatibleImage(nullptr, 8, 8);
            image->Load(memory, 256, nullptr);
            image->CreateImage(8, 8, TXImage::Format_ARGB32);
            image->SetBits(memory, 256);
        });
    EXPECT_EQ(kept, 0);
}

TEST(AllocationCountTest, ADestroyedFontLeavesNothingBehind)
{
    const long kept = BlocksKeptBy(
        []
        {
            const TXRefPtr<TXFont> font(TestEngine().NewFont());
            font->Create();
            font->SetFontName(L"DejaVu Sans");
            font->Create();
            font->SetFontHeight(20);
        });
    EXPECT_EQ(kept, 0);
}

// The one leak that is wanted: the empty Qt image of an attempt to load a file that is not there is kept nowhere.
TEST(AllocationCountTest, AFileThatCannotBeLoadedLeavesAnEmptyQtImageBehind)
{
    const TXRefPtr<TXImage> image(TestEngine().NewImage());
    EXPECT_EQ(BlocksKeptBy([&] { image->CreateCompatibleImage(kMissingFile); }), 1);

    unsigned char noImage[] = "no image";
    EXPECT_EQ(BlocksKeptBy([&] { image->Load(noImage, sizeof noImage, nullptr); }), 0);
}
