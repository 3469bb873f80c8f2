#include <txgraphics/TXGraphicsEngine.h>

namespace TZObjects
{

TXGraphicsEngine::TXGraphicsEngine(const TXString& name, const TXString& version, const TXString& description)
    : name(name), version(version), description(description)
{
}

TXGraphicsEngine::~TXGraphicsEngine() = default;

} // namespace TZObjects
