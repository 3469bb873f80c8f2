// GeoTIFFs and world files that cannot be written.
#include <sys/resource.h>

#include <csignal>
#include <string>

#include <gdal.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/RefusalOf.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <txmap/output/GeoTiff.h>
#include <txmap/output/WorldFile.h>
#include <txmap/support/Failure.h>

using namespace txmap;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

namespace
{

/// As on a disk that is full, as long as it lives.
class FullDisk
{
public:
    FullDisk() : handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit none{0, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    void (*handler)(int);
    rlimit before = {};
};

} // namespace

TEST(GeoTiff, CallsAFileWhatItsUserCallsIt)
{
    GDALAllRegister();
    const TemporaryFolder folder;
    const std::string picture = folder.Write("a.ppm", "P6 2 1 255\nabcdef");
    const std::string path = folder / ".temporary.tif";
    const std::string refusal = RefusalOf(ExitCode::Drawing,
                                          [&]
                                          {
                                              const FullDisk disk;
                                              WriteGeoTiff(picture, path, "--output map.tif", {"EPSG:3857"});
                                          });
    EXPECT_THAT(refusal, StartsWith("--output map.tif: the picture cannot be written ("));
    EXPECT_THAT(refusal, Not(HasSubstr(".temporary")));
}

TEST(WorldFile, SaysWhetherItIsWritten)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(WriteWorldFile(folder / "map.pgw", {"EPSG:3857"}));
    const FullDisk disk;
    EXPECT_FALSE(WriteWorldFile(folder / "map.pgw", {"EPSG:3857"}));
}
