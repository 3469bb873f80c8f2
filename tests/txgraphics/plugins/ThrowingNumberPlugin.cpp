// A plugin whose entry throws something that is no exception class.
#include <boost/dll/alias.hpp>
#include <txbase/TXPlugin.h>
#include <txbase/TXRefPtr.h>

TZObjects::TXRefPtr<TZObjects::TXPlugin> ThrowNumber() { throw 42; }

BOOST_DLL_ALIAS(ThrowNumber, GetTZPlugIn)
