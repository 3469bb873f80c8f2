#include <txgraphics/TXGraphicsEngineManager.h>

#include <thread>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "ManagerFixture.h"

using TZObjects::TXGraphicsEngineManager;
using TZObjects::TXString;

namespace
{

static_assert(!std::is_copy_constructible_v<TXGraphicsEngineManager>);
static_assert(!std::is_copy_assignable_v<TXGraphicsEngineManager>);

/// What a process starts with. Taken before any case runs, as cases make managers of their own current.
struct Start
{
    TXGraphicsEngineManager* manager = TXGraphicsEngineManager::instance("");
    TXGraphicsEngineManager* again = TXGraphicsEngineManager::instance(TXString());
    bool antialiasing = manager->AntialiasingEnabled();
    bool cairoDrawing = manager->CairoDrawingEnabled();
    int imageFormat = manager->DefaultImageFormat();
    bool hasEngine = static_cast<bool>(manager->Engine());
};

const Start kStart;

} // namespace

TEST(ManagerAtStart, IsThereAndTheSameEachTime)
{
    EXPECT_NE(kStart.manager, nullptr);
    EXPECT_EQ(kStart.manager, kStart.again);
}

TEST(ManagerAtStart, HasTheDefaultSettings)
{
    EXPECT_TRUE(kStart.antialiasing);
    EXPECT_FALSE(kStart.cairoDrawing);
    EXPECT_EQ(kStart.imageFormat, 5);
    EXPECT_FALSE(kStart.hasEngine);
}

TEST_F(ManagerTest, OneNameIsOneManager)
{
    const TXString name = Unique("name");
    TXGraphicsEngineManager* const one = TXGraphicsEngineManager::instance(name);
    ASSERT_NE(one, nullptr);
    EXPECT_EQ(TXGraphicsEngineManager::instance(name), one);
    EXPECT_NE(TXGraphicsEngineManager::instance(Unique("name")), one);
    EXPECT_NE(Current(), one);
    EXPECT_EQ(TXGraphicsEngineManager::instance(name), one);
    EXPECT_FALSE(one->Engine());
}

TEST_F(ManagerTest, AskingForANameDoesNotMakeItCurrent)
{
    TXGraphicsEngineManager::instance(Unique("name"));
    EXPECT_EQ(Current(), manager);
}

TEST_F(ManagerTest, NamesAreComparedExactly)
{
    EXPECT_NE(TXGraphicsEngineManager::instance("QT"), TXGraphicsEngineManager::instance("qt"));
    EXPECT_NE(TXGraphicsEngineManager::instance("QT"), TXGraphicsEngineManager::instance("QT "));
    EXPECT_EQ(TXGraphicsEngineManager::instance("QT"), TXGraphicsEngineManager::instance(L"QT"));
}

TEST_F(ManagerTest, TheEmptyNameIsTheCurrentOne)
{
    const TXString name = Unique("name");
    TXGraphicsEngineManager* const named = TXGraphicsEngineManager::instance(name);
    TXGraphicsEngineManager::SetCurrent(name);
    EXPECT_EQ(Current(), named);
    TXGraphicsEngineManager::SetCurrent("");
    EXPECT_EQ(Current(), named);
    EXPECT_EQ(TXGraphicsEngineManager::instance(name), named);
}

TEST_F(ManagerTest, ANameUnknownSoFarCanBecomeCurrent)
{
    const TXString name = Unique("name");
    TXGraphicsEngineManager::SetCurrent(name);
    EXPECT_NE(Current(), manager);
    EXPECT_EQ(Current(), TXGraphicsEngineManager::instance(name));
}

TEST_F(ManagerTest, SettingsAreKept)
{
    manager->EnableAntialiasing(false);
    EXPECT_FALSE(manager->AntialiasingEnabled());
    EXPECT_FALSE(manager->CairoDrawingEnabled());
    EXPECT_EQ(manager->DefaultImageFormat(), 5);
    manager->EnableCairoDrawing(true);
    EXPECT_TRUE(manager->CairoDrawingEnabled());
    EXPECT_FALSE(manager->AntialiasingEnabled());
    manager->SetDefaultImageFormat(6);
    EXPECT_EQ(manager->DefaultImageFormat(), 6);
    manager->EnableAntialiasing(true);
    manager->EnableCairoDrawing(false);
    EXPECT_TRUE(manager->AntialiasingEnabled());
    EXPECT_FALSE(manager->CairoDrawingEnabled());
    EXPECT_TRUE(manager->RasterizerEnabled());
    manager->EnableRasterizer(false);
    EXPECT_FALSE(manager->RasterizerEnabled());
    manager->EnableRasterizer(true);
    EXPECT_TRUE(manager->RasterizerEnabled());
    for (const int format : {0, 24, -1, 1000})
    {
        manager->SetDefaultImageFormat(format);
        EXPECT_EQ(manager->DefaultImageFormat(), format);
    }
}

TEST_F(ManagerTest, ANewManagerHasTheSettingsOfTheCurrentOne)
{
    manager->EnableAntialiasing(false);
    manager->EnableCairoDrawing(true);
    manager->SetDefaultImageFormat(6);
    manager->EnableRasterizer(false);
    const TXGraphicsEngineManager* const other = TXGraphicsEngineManager::instance(Unique("name"));
    EXPECT_FALSE(other->AntialiasingEnabled());
    EXPECT_TRUE(other->CairoDrawingEnabled());
    EXPECT_EQ(other->DefaultImageFormat(), 6);
    EXPECT_FALSE(other->RasterizerEnabled());
    TXGraphicsEngineManager::SetCurrent(Unique("name"));
    EXPECT_FALSE(Current()->AntialiasingEnabled());
    EXPECT_TRUE(Current()->CairoDrawingEnabled());
    EXPECT_EQ(Current()->DefaultImageFormat(), 6);
}

TEST_F(ManagerTest, SettingsOfOneDoNotChangeAnother)
{
    const TXString name = Unique("name");
    TXGraphicsEngineManager* const other = TXGraphicsEngineManager::instance(name);
    manager->EnableAntialiasing(false);
    manager->EnableCairoDrawing(true);
    manager->SetDefaultImageFormat(6);
    EXPECT_TRUE(other->AntialiasingEnabled());
    EXPECT_FALSE(other->CairoDrawingEnabled());
    EXPECT_EQ(other->DefaultImageFormat(), 5);
    // Asked for again, and even made current, it keeps what it has.
    TXGraphicsEngineManager::SetCurrent(name);
    EXPECT_TRUE(TXGraphicsEngineManager::instance("")->AntialiasingEnabled());
    EXPECT_EQ(other->DefaultImageFormat(), 5);
    other->SetDefaultImageFormat(4);
    EXPECT_EQ(manager->DefaultImageFormat(), 6);
}

TEST_F(ManagerTest, MayBeAskedForOnManyThreads)
{
    constexpr int kThreads = 4;
    std::vector<TXString> names;
    for (int i = 0; i < 100; ++i)
        names.push_back(Unique("name"));
    std::vector<std::vector<TXGraphicsEngineManager*>> found(kThreads);
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (std::vector<TXGraphicsEngineManager*>& mine : found)
        threads.emplace_back(
            [&]
            {
                for (const TXString& name : names)
                {
                    mine.push_back(TXGraphicsEngineManager::instance(name));
                    TXGraphicsEngineManager* const current = Current();
                    current->SetDefaultImageFormat(5 + current->DefaultImageFormat() % 2);
                    current->EnableAntialiasing(!current->AntialiasingEnabled());
                    current->EnableCairoDrawing(!current->CairoDrawingEnabled());
                }
            });
    for (std::thread& thread : threads)
        thread.join();
    for (const std::vector<TXGraphicsEngineManager*>& mine : found)
        EXPECT_EQ(mine, found[0]);
}
