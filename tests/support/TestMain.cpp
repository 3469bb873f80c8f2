#include <QGuiApplication>

#include <gtest/gtest.h>
#include <txgraphics/TXGraphicsEngineManager.h>

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    // Listing needs no fonts, and so nothing that they leak.
    if (::testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsSet("TX_LABEL_CACHE_SIZE"))
        TZObjects::TXGraphicsEngineManager::instance("")->SetLabelCacheSize(qgetenv("TX_LABEL_CACHE_SIZE").toULong());
    if (qgetenv("TX_RASTERIZER") == "off")
        TZObjects::TXGraphicsEngineManager::instance("")->EnableRasterizer(false);
    QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
