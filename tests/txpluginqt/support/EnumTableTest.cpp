#include <gtest/gtest.h>

#include <txpluginqt/support/EnumTable.h>

using namespace txqt;

namespace
{

enum Host : int
{
    HostOne = 1,
    HostFar = 4096
};

enum class Backend
{
    First,
    Second,
    Other
};

constexpr EnumRow<Host, Backend> kTable[] = {{HostOne, Backend::First}, {HostFar, Backend::Second}};

TEST(EnumTableTest, ReadsInBothDirections)
{
    for (const auto& row : kTable)
    {
        EXPECT_EQ(ToBackend(kTable, row.host, Backend::Other), row.backend);
        EXPECT_EQ(ToHost(kTable, row.backend, static_cast<Host>(-1)), row.host);
    }
}

TEST(EnumTableTest, FallsBackForUnlistedNumbers)
{
    EXPECT_EQ(ToBackend(kTable, static_cast<Host>(2), Backend::Other), Backend::Other);
    EXPECT_EQ(ToHost(kTable, Backend::Other, HostFar), HostFar);
}

} // namespace
