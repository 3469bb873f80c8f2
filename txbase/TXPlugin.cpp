#include <txbase/TXPlugin.h>

namespace TZObjects
{

TXPlugin::~TXPlugin() = default;
void TXPlugin::InitPlugin() {}
void TXPlugin::UnloadPlugin() {}
bool TXPlugin::IsDll() { return true; }

} // namespace TZObjects
