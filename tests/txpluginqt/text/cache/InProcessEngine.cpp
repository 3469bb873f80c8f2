// In place of the plugin that tests load otherwise: its engine, linked into the program, so that a test can look into
// the cache that the labels go through.
#include <tests/support/TestEngine.h>
#include <txpluginqt/engine/TXGraphicsEngineQT.h>

using namespace TZObjects;

TXGraphicsEngine& TestEngine()
{
    // Like a plugin's engine, it lives until the process ends.
    static const TXRefPtr<TXGraphicsEngine> engine(new TXGraphicsEngineQT);
    return *engine;
}

ManagerSettingsGuard::~ManagerSettingsGuard()
{
    TXGraphicsEngineManager* const manager = TXGraphicsEngineManager::instance("");
    manager->EnableAntialiasing(true);
    manager->EnableCairoDrawing(false);
    manager->SetDefaultImageFormat(TXImage::Format_ARGB32);
}
