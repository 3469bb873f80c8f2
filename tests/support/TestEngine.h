#pragma once

#include <txgraphics/txgraphics.h>

/// The engine of the plugin under test, loaded at run time through the manager as a host does.
TZObjects::TXGraphicsEngine& TestEngine();

/// Sets the engine manager's settings back to what a process starts with when it goes.
class ManagerSettingsGuard
{
public:
    ManagerSettingsGuard() = default;
    ~ManagerSettingsGuard();
    ManagerSettingsGuard(const ManagerSettingsGuard&) = delete;
    ManagerSettingsGuard& operator=(const ManagerSettingsGuard&) = delete;
};
