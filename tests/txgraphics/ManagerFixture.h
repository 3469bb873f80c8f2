#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <txgraphics/TXGraphicsEngineManager.h>

/// Sets or removes an environment variable and puts it back at the end.
class EnvironmentVariable
{
public:
    /// Null removes it.
    EnvironmentVariable(std::string name, const char* value);
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
    ~EnvironmentVariable();

    void Set(const std::string& value);

private:
    std::string name;
    std::string before;
    bool wasSet;
};

/// Managers live as long as the process and keep their names, so each case works with managers and engines of names
/// that no other case has, and starts with a current manager of its own.
class ManagerTest : public ::testing::Test
{
protected:
    ManagerTest();
    ~ManagerTest() override;

    /// A name that begins so and that no other case has.
    static TZObjects::TXString Unique(const std::string& beginning);
    static TZObjects::TXGraphicsEngineManager* Current();

    /// The current manager when the case begins, with default settings and without an engine.
    TZObjects::TXGraphicsEngineManager* const manager;
};

/// A case that loads plugins.
class PluginTest : public ManagerTest
{
protected:
    using Events = std::vector<std::string>;

    PluginTest();
    ~PluginTest() override;

    /// The file of a test plugin such as "good".
    static std::filesystem::path Plugin(const std::string& name);
    /// What happened to the objects of a plugin since the case began. The plugin stays mapped until the case ends.
    Events& EventsOf(const std::string& name);
    /// A folder for this case, made if need be.
    std::filesystem::path Folder(const std::string& name) const;
    /// Writes a file that is no library.
    static void WriteText(const std::filesystem::path& file, std::size_t length);
    /// Loads by path, and unloads at the end of the case.
    TZObjects::TXRefPtr<TZObjects::TXGraphicsEngine> Load(TZObjects::TXGraphicsEngineManager* by,
                                                          const std::filesystem::path& file);
    /// The text of an attempt that must fail.
    std::string Failure(const TZObjects::TXString& plugin);

    /// The name that the engines of good plugins get.
    const TZObjects::TXString engineName;
    EnvironmentVariable searchPath;

private:
    EnvironmentVariable engineNameVariable;
    std::filesystem::path folder;
    std::vector<void*> kept;
};
