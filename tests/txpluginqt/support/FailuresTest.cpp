#include <memory>
#include <new>
#include <stdexcept>

#include <gtest/gtest.h>

#include <txpluginqt/support/Failures.h>

using namespace txqt;

namespace
{

struct Unmakeable
{
    Unmakeable() { throw std::bad_alloc(); }
};

TEST(FailuresTest, AnObjectThatCannotBeMadeIsNull)
{
    EXPECT_EQ(NewOrNull<Unmakeable>(), nullptr);
    const std::unique_ptr<int> made(NewOrNull<int>(7));
    EXPECT_EQ(*made, 7);
}

TEST(FailuresTest, NoExceptionComesOut)
{
    EXPECT_TRUE(Succeeds([] {}));
    EXPECT_FALSE(Succeeds([] { throw std::out_of_range("beyond"); }));
    EXPECT_FALSE(Succeeds([] { throw std::bad_alloc(); }));
    EXPECT_EQ(ResultOr(1, [] { return 2; }), 2);
    EXPECT_EQ(ResultOr(1, []() -> int { throw std::bad_alloc(); }), 1);
}

TEST(FailuresTest, AbsentObjectsAreLeftAlone)
{
    int value = 1;
    IfPresent(&value, [](int& v) { v = 2; });
    EXPECT_EQ(value, 2);
    IfPresent(static_cast<int*>(nullptr), [](int& v) { v = 3; });
    IfPresent(&value, [](int&) { throw std::bad_alloc(); });
    EXPECT_EQ(value, 2);
}

} // namespace
