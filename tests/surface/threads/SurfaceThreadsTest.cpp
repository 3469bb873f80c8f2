#include <vector>

#include <tests/support/ImageCompare.h>

#include "DrawingSequence.h"
#include "ThreadsTest.h"
#include "TogetherOnThreads.h"

using namespace TZObjects;

namespace
{

constexpr int kThreads = 8;
constexpr int kLabels = 500;

using Recordings = std::vector<Recording>;
using Runner = void (*)(int, const std::function<void(int)>&);

/// Each thread draws a sequence of its own with the one engine. What Qt draws depends on what its thread drew before,
/// so that every sequence is drawn on a new thread, whether together with the others or alone.
Recordings RecordOnThreads(Runner run, int labels = kLabels)
{
    TXGraphicsEngine& engine = TestEngine();
    Recordings recordings(kThreads);
    run(kThreads, [&](int i)
        { recordings[static_cast<std::size_t>(i)] = RecordDrawing(engine, 700 + static_cast<unsigned>(i), labels); });
    return recordings;
}

void ExpectSame(const Recordings& actual, const Recordings& expected)
{
    for (std::size_t i = 0; i < actual.size(); ++i)
        EXPECT_TRUE(SameRecording(actual[i], expected[i])) << "thread " << i;
}

class SurfaceThreads : public ThreadsTest
{
};

} // namespace

TEST_F(SurfaceThreads, DrawTogetherWhatTheyDrawAlone)
{
    // Together first: that is when every library below still makes what it keeps for the whole process.
    const Recordings together = RecordOnThreads(TogetherOnThreads);
    const Recordings alone = RecordOnThreads(OneAfterTheOther);
    ExpectSame(together, alone);
    ExpectSame(RecordOnThreads(TogetherOnThreads), alone);
}

TEST_F(SurfaceThreads, DrawWhatIsSeenAndDiffers)
{
    const Recordings alone = RecordOnThreads(OneAfterTheOther, 40);
    for (std::size_t i = 0; i < alone.size(); ++i)
    {
        ASSERT_EQ(alone[i].pictures.size(), 2u);
        for (const QImage& picture : alone[i].pictures)
            EXPECT_GT(InkedPixels(picture), picture.width() * picture.height() / 10) << "thread " << i;
        EXPECT_NE(alone[i].pictures[0], alone[(i + 1) % alone.size()].pictures[0]) << "thread " << i;
        EXPECT_NE(alone[i].pictures[0], alone[i].pictures[1]) << "thread " << i;
    }
}

TEST_F(SurfaceThreads, DrawTheSameWhileTheSizeOfTheLabelCacheChanges)
{
    const Recordings alone = RecordOnThreads(OneAfterTheOther);
    TXGraphicsEngineManager* const manager = TXGraphicsEngineManager::instance("");
    const std::size_t size = manager->LabelCacheSize();
    {
        const Meanwhile resizing(
            [&]
            {
                for (const std::size_t bytes : {std::size_t(0), std::size_t(4000), std::size_t(100000), size})
                    manager->SetLabelCacheSize(bytes);
            });
        ExpectSame(RecordOnThreads(TogetherOnThreads), alone);
        EXPECT_GT(resizing.Rounds(), 1);
    }
    manager->SetLabelCacheSize(size);
}
