#include <txbase/TXPlugin.h>

#include <type_traits>

#include <gtest/gtest.h>
#include <txbase/TXRefPtr.h>

using namespace TZObjects;

namespace
{

static_assert(std::is_base_of_v<TXRefBase, TXPlugin>);
static_assert(std::is_convertible_v<TXPlugin*, TXRefBase*>);
static_assert(std::has_virtual_destructor_v<TXPlugin>);
static_assert(!std::is_abstract_v<TXPlugin>);

class OwnPlugin : public TXPlugin
{
public:
    explicit OwnPlugin(int& calls) : calls(calls) {}
    ~OwnPlugin() override { calls += 1000; }
    void InitPlugin() override { calls += 1; }
    void UnloadPlugin() override { calls += 10; }
    bool IsDll() override
    {
        calls += 100;
        return false;
    }

private:
    int& calls;
};

} // namespace

TEST(TXPlugin, LivesInALibraryByDefault)
{
    TXPlugin plugin;
    EXPECT_TRUE(plugin.IsDll());
}

TEST(TXPlugin, DefaultsDoNothingAndKeepTheObjectAlive)
{
    const TXRefPtr<TXPlugin> plugin = new TXPlugin;
    plugin->InitPlugin();
    plugin->UnloadPlugin();
    plugin->UnloadPlugin();
    plugin->InitPlugin();
    EXPECT_TRUE(plugin->IsDll());
}

TEST(TXPlugin, OperationsAndDestructorAreVirtual)
{
    int calls = 0;
    TXRefPtr<TXPlugin> plugin = new OwnPlugin(calls);
    plugin->InitPlugin();
    EXPECT_EQ(calls, 1);
    plugin->UnloadPlugin();
    EXPECT_EQ(calls, 11);
    EXPECT_FALSE(plugin->IsDll());
    EXPECT_EQ(calls, 111);
    plugin = nullptr;
    EXPECT_EQ(calls, 1111);
}
