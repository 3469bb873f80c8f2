#pragma once

#include <string>
#include <vector>

/// What happened to the objects of a test plugin, in order, such as "create 1" or "destroy 1". A test reads it by its
/// name out of the loaded plugin, and may clear it, which starts the numbers anew.
extern "C" __attribute__((visibility("default"))) std::vector<std::string> PluginEvents;

constexpr char kPluginEvents[] = "PluginEvents";
/// The environment variable that gives the good plugins their engine's name.
constexpr char kEngineName[] = "TX_TEST_ENGINE_NAME";
