#include <txgraphics/TXGraphicsEngine.h>

#include <gtest/gtest.h>
#include <txbase/TXRefPtr.h>

#include "EngineDouble.h"

using namespace TZObjects;

TEST(TXGraphicsEngine, KeepsNameVersionAndDescription)
{
    const EngineDouble engine(L"Näme", "0.1", "");
    EXPECT_EQ(engine.GetName(), TXString(L"Näme"));
    EXPECT_EQ(engine.GetVersion(), TXString("0.1"));
    EXPECT_EQ(engine.GetDescription(), TXString(""));
    EXPECT_EQ(EngineDouble("a", "b", "c").GetDescription(), TXString("c"));
}

TEST(TXGraphicsEngine, IsAPluginThatDoesNothingOfItsOwn)
{
    const TXRefPtr<TXGraphicsEngine> engine = new EngineDouble("name", "1", "");
    const TXRefPtr<TXPlugin> plugin = engine;
    plugin->InitPlugin();
    plugin->UnloadPlugin();
    EXPECT_TRUE(plugin->IsDll());
    EXPECT_EQ(engine->GetName(), TXString("name"));
}
