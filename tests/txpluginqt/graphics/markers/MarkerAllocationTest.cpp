#include <tests/support/AllocationCount.h>
#include <tests/support/Twins.h>
#include <tests/txpluginqt/graphics/SurfaceTest.h>

#include "Symbols.h"

using namespace TZObjects;

namespace
{

class MarkerAllocationTest : public SurfaceTest
{
protected:
    MarkerAllocationTest()
    {
        // So that Qt needs no memory beyond what it keeps from one drawing to the next.
        twins.SurfacePainter().setPen(QPen(Qt::black));
        twins.SurfacePainter().setRenderHint(QPainter::Antialiasing, false);
    }

    Allocations Of(Placement placement, int count)
    {
        PointSymbol symbol;
        symbol.SetPoints(Star(count, 7, 20.0));
        symbol.angle = 30.0;
        for (int i = 0; i < 3; ++i)
            EXPECT_TRUE(Draw(twins.Surface(), placement, symbol));
        const AllocationCounter counter;
        Draw(twins.Surface(), placement, symbol);
        return counter.SoFar();
    }

    Twins twins{96, 72};
};

TEST_F(MarkerAllocationTest, UsualVectorMarkersNeedNoneAndLargerOnesOne)
{
    for (const Placement placement : kPlacements)
    {
        EXPECT_EQ(Of(placement, 3).count, 0u);
        EXPECT_EQ(Of(placement, 64).count, 0u);
        EXPECT_EQ(Of(placement, 65).count, 1u);
        EXPECT_EQ(Of(placement, 3000).count, 1u);
    }
}

} // namespace
