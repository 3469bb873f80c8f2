#pragma once

#include <QStringList>

#include <gtest/gtest.h>

#include "TestEngine.h"

/// Fixture of the tests of the plugin: nothing may be printed through Qt from the start of a test until the objects
/// that it made are gone, and the manager's settings are put back afterwards.
class QuietTest : public ::testing::Test
{
protected:
    QuietTest();
    ~QuietTest() override;

    /// For the few calls in which a library below Qt prints by itself: forgets and returns what was printed so far.
    static QStringList TakeMessages();

private:
    ManagerSettingsGuard settings;
};
