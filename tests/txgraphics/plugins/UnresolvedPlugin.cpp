// A plugin that needs a function which no library has.
#include <boost/dll/alias.hpp>
#include <txbase/TXPlugin.h>
#include <txbase/TXRefPtr.h>

extern "C" TZObjects::TXPlugin* TXTestFunctionThatIsNowhere();

TZObjects::TXRefPtr<TZObjects::TXPlugin> MakeUnresolved() { return TXTestFunctionThatIsNowhere(); }

BOOST_DLL_ALIAS(MakeUnresolved, GetTZPlugIn)
