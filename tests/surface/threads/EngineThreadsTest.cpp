#include <boost/dll/shared_library.hpp>

#include <atomic>
#include <vector>

#include "DrawingSequence.h"
#include "ThreadsTest.h"
#include "TogetherOnThreads.h"

using namespace TZObjects;

namespace
{

constexpr int kThreads = 8;
constexpr int kLabels = 60;
constexpr int kRounds = 200;

using Entry = TXRefPtr<TXPlugin>();

class EngineThreads : public ThreadsTest
{
};

/// True when every factory of the engine gives an object that works.
bool MakesEverything(TXGraphicsEngine& engine)
{
    const TXRefPtr<TXPen> pen(engine.NewPen());
    const TXRefPtr<TXBrush> brush(engine.NewBrush());
    const TXRefPtr<TXFont> font(engine.NewFont());
    const TXRefPtr<TXImage> image(engine.NewImage());
    const TXRefPtr<TXGradient> linear(engine.NewLinearGradient(0.0, 0.0, 5.0, 5.0));
    const TXRefPtr<TXGradient> radial(engine.NewRadialGradient(2.0, 2.0, 5.0));
    const TXRefPtr<TXGraphics> empty(engine.NewGraphics());
    const bool made = pen->Create() && font->Create() && image->CreateImage(8, 8, TXImage::Format_ARGB32) &&
                      brush->Create(TXColor::RED_, TXBrush::SolidBrush);
    linear->SetColorAt(0.5, TXColor::RED_);
    radial->SetColorAt(0.5, TXColor::RED_);
    const TXRefPtr<TXGraphics> surface(engine.NewGraphics(image.get()));
    return made && surface->ClearWithColor(TXColor::WHITE_) == false && surface->Rectangle(1.0, 1.0, 4.0, 4.0) &&
           empty->CreateCompatibleGraphics(6, 6) && empty->FillRect(TXRect(0.0, 6.0, 0.0, 6.0), linear.get()) &&
           empty->GetImage()->GetWidth() == 6;
}

} // namespace

TEST_F(EngineThreads, MakeEnginesThatDrawTheSame)
{
    const boost::dll::shared_library library(TX_TEST_PLUGIN);
    Entry* const newEngine = library.get<Entry*>("GetTZPlugIn");
    std::vector<Recording> together(kThreads);
    TogetherOnThreads(kThreads,
                      [&](int i)
                      {
                          const TXRefPtr<TXPlugin> plugin = newEngine();
                          auto* const engine = dynamic_cast<TXGraphicsEngine*>(plugin.get());
                          if (engine)
                              together[static_cast<std::size_t>(i)] = RecordDrawing(*engine, 900, kLabels);
                      });
    OneAfterTheOther(1,
                     [&](int)
                     {
                         const Recording alone = RecordDrawing(TestEngine(), 900, kLabels);
                         for (const Recording& recording : together)
                             EXPECT_TRUE(SameRecording(recording, alone));
                     });
}

TEST_F(EngineThreads, MakeObjectsAndReadSettingsWhileOthersDraw)
{
    TXGraphicsEngine& engine = TestEngine();
    TXGraphicsEngineManager* const manager = TXGraphicsEngineManager::instance("");
    Recording alone;
    OneAfterTheOther(1, [&](int) { alone = RecordDrawing(engine, 901, kLabels); });

    std::atomic<int> failures{0};
    std::vector<Recording> drawn(kThreads);
    const auto makeAndRead = [&](int i)
    {
        for (int round = 0; round < kRounds; ++round)
        {
            // A manager that is made now, by one of several threads.
            const TXString name(L"other" + std::to_wstring(round));
            const bool asExpected =
                MakesEverything(engine) && manager->AntialiasingEnabled() && manager->CairoDrawingEnabled() &&
                manager->DefaultImageFormat() == TXImage::Format_ARGB32 && manager->LabelCacheSize() > 0 &&
                TXGraphicsEngineManager::instance("") == manager &&
                TXGraphicsEngineManager::instance(name) == TXGraphicsEngineManager::instance(name) &&
                TXGraphicsEngineManager::instance(name)->CairoDrawingEnabled() &&
                TXFont::GetEnglishNameForKnownFont(L"\u5b8b\u4f53") == TXString(L"SimSun") &&
                engine.GetName() == TXString("QT");
            if (!asExpected)
                ++failures;
        }
        drawn[static_cast<std::size_t>(i)] = alone;
    };
    TogetherOnThreads(kThreads,
                      [&](int i)
                      {
                          if (i % 2 == 0)
                              makeAndRead(i);
                          else
                              drawn[static_cast<std::size_t>(i)] = RecordDrawing(engine, 901, kLabels);
                      });
    EXPECT_EQ(failures, 0);
    for (const Recording& recording : drawn)
        EXPECT_TRUE(SameRecording(recording, alone));
}

TEST_F(EngineThreads, ReadTheSettingThatAnotherThreadMade)
{
    TXGraphicsEngineManager* const manager = TXGraphicsEngineManager::instance("");
    std::atomic<int> torn{0};
    {
        const Meanwhile changing(
            [&]
            {
                for (const bool on : {false, true})
                {
                    manager->EnableAntialiasing(on);
                    manager->EnableCairoDrawing(on);
                    manager->SetDefaultImageFormat(on ? TXImage::Format_RGB32 : TXImage::Format_ARGB32_Premultiplied);
                }
            });
        TogetherOnThreads(kThreads,
                          [&](int)
                          {
                              for (int round = 0; round < kRounds; ++round)
                              {
                                  const TXRefPtr<TXGraphics> surface(TestEngine().NewGraphics());
                                  const bool made = surface->CreateCompatibleGraphics(5, 5);
                                  const int format =
                                      static_cast<const QImage*>(surface->GetImage()->GetInternalObject())->format();
                                  if (!made || (format != QImage::Format_RGB32 && format != QImage::Format_ARGB32 &&
                                                format != QImage::Format_ARGB32_Premultiplied))
                                      ++torn;
                              }
                          });
    }
    EXPECT_EQ(torn, 0);
}
