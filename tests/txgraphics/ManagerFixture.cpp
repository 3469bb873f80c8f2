#include "ManagerFixture.h"

#include <dlfcn.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "plugins/PluginEvents.h"

using namespace TZObjects;
namespace fs = std::filesystem;

EnvironmentVariable::EnvironmentVariable(std::string name, const char* value) : name(std::move(name))
{
    const char* const old = std::getenv(this->name.c_str());
    wasSet = old != nullptr;
    if (old)
        before = old;
    if (value)
        Set(value);
    else
        unsetenv(this->name.c_str());
}

EnvironmentVariable::~EnvironmentVariable()
{
    if (wasSet)
        Set(before);
    else
        unsetenv(name.c_str());
}

void EnvironmentVariable::Set(const std::string& value) { setenv(name.c_str(), value.c_str(), 1); }

ManagerTest::ManagerTest()
    : manager(
          []
          {
              const TXString name = Unique("manager");
              TXGraphicsEngineManager::SetCurrent(name);
              return TXGraphicsEngineManager::instance(name);
          }())
{
    manager->EnableAntialiasing(true);
    manager->EnableCairoDrawing(false);
    manager->SetDefaultImageFormat(5);
    manager->EnableRasterizer(true);
}

ManagerTest::~ManagerTest() { manager->Unload(); }

TXString ManagerTest::Unique(const std::string& beginning)
{
    static std::atomic<int> number{0};
    return (beginning + " of the tests " + std::to_string(++number)).c_str();
}

TXGraphicsEngineManager* ManagerTest::Current() { return TXGraphicsEngineManager::instance(""); }

PluginTest::PluginTest()
    : engineName(Unique("engine")), searchPath("TX_PLUGIN_PATH", nullptr),
      engineNameVariable(kEngineName, engineName.toUTF8().c_str())
{
    std::string pattern = (fs::temp_directory_path() / "txgraphics-test-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("no folder for temporary files");
    folder = fs::canonical(pattern);
}

PluginTest::~PluginTest()
{
    TXGraphicsEngineManager::instance(engineName)->Unload();
    manager->Unload();
    for (void* const library : kept)
        dlclose(library);
    std::error_code ignored;
    fs::remove_all(folder, ignored);
}

fs::path PluginTest::Plugin(const std::string& name)
{
    return fs::path(TX_TEST_PLUGIN_FOLDER) / ("libtxtest_" + name + ".so");
}

PluginTest::Events& PluginTest::EventsOf(const std::string& name)
{
    void* const library = dlopen(Plugin(name).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library)
        throw std::runtime_error("the test plugin " + name + " was not built");
    kept.push_back(library);
    auto* const events = static_cast<Events*>(dlsym(library, kPluginEvents));
    events->clear();
    return *events;
}

fs::path PluginTest::Folder(const std::string& name) const
{
    fs::create_directories(folder / name);
    return folder / name;
}

void PluginTest::WriteText(const fs::path& file, std::size_t length)
{
    std::ofstream(file) << std::string(length, '#');
}

TXRefPtr<TXGraphicsEngine> PluginTest::Load(TXGraphicsEngineManager* by, const fs::path& file)
{
    TXString error;
    TXRefPtr<TXGraphicsEngine> engine = by->LoadPlugin(file.c_str(), &error);
    EXPECT_TRUE(engine) << error.toUTF8();
    return engine;
}

std::string PluginTest::Failure(const TXString& plugin)
{
    TXString error;
    TXRefPtr<TXGraphicsEngine> engine;
    EXPECT_NO_THROW(engine = manager->LoadPlugin(plugin, &error));
    EXPECT_FALSE(engine);
    EXPECT_FALSE(error.isEmpty());
    return error.toUTF8();
}
