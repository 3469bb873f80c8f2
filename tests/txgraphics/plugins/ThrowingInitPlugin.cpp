// A plugin whose engine throws when it is told of its loading, or of its end.
#include <cstdlib>

#include <boost/dll/alias.hpp>
#include <txbase/TXRefPtr.h>

#include "../EngineDouble.h"

namespace
{

class ThrowingEngine : public EngineDouble
{
public:
    ThrowingEngine() : EngineDouble("Throwing", "1", "") {}
    void InitPlugin() override
    {
        if (!std::getenv("TX_TEST_INIT_WORKS"))
            throw 1;
    }
    void UnloadPlugin() override { throw 2; }
};

} // namespace

TZObjects::TXRefPtr<TZObjects::TXPlugin> MakeThrowingEngine() { return new ThrowingEngine; }

BOOST_DLL_ALIAS(MakeThrowingEngine, GetTZPlugIn)
