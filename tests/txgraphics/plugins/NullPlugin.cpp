// A plugin whose entry makes nothing.
#include <boost/dll/alias.hpp>
#include <txbase/TXPlugin.h>
#include <txbase/TXRefPtr.h>

TZObjects::TXRefPtr<TZObjects::TXPlugin> MakeNothing() { return nullptr; }

BOOST_DLL_ALIAS(MakeNothing, GetTZPlugIn)
