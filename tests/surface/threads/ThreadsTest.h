#pragma once

#include <gtest/gtest.h>

#include <tests/support/TestEngine.h>

/// Fixture of the tests on several threads: labels may be drawn and measured with cairo as well as with Qt, nothing may
/// be printed through Qt on any thread, and the manager's settings are put back afterwards.
class ThreadsTest : public ::testing::Test
{
protected:
    ThreadsTest();
    ~ThreadsTest() override;

private:
    ManagerSettingsGuard settings;
};
