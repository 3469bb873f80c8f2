#pragma once

#include <string>

#include <gtest/gtest.h>
#include <txmap/support/Failure.h>

/// What an action says that refuses with @p code; "accepted" when it does not.
template <class Action>
std::string RefusalOf(txmap::ExitCode code, Action action)
{
    try
    {
        action();
    }
    catch (const txmap::Failure& failure)
    {
        EXPECT_EQ(failure.Code(), code) << failure.what();
        return failure.what();
    }
    return "accepted";
}
