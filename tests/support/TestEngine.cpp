#include "TestEngine.h"

#include <cstdlib>
#include <iostream>

using namespace TZObjects;

TXGraphicsEngine& TestEngine()
{
    static TXGraphicsEngine* const engine = []
    {
        TXString error;
        const TXRefPtr<TXGraphicsEngine> loaded =
            TXGraphicsEngineManager::instance("")->LoadPlugin(TX_TEST_PLUGIN, &error);
        if (!loaded)
        {
            std::cerr << "the plugin under test cannot be loaded: " << error.toUTF8() << std::endl;
            std::abort();
        }
        // The manager holds it until the process ends.
        return loaded.get();
    }();
    return *engine;
}

ManagerSettingsGuard::~ManagerSettingsGuard()
{
    TXGraphicsEngineManager* const manager = TXGraphicsEngineManager::instance("");
    manager->EnableAntialiasing(true);
    manager->EnableCairoDrawing(false);
    manager->SetDefaultImageFormat(TXImage::Format_ARGB32);
}
