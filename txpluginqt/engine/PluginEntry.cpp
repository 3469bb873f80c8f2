#include <boost/dll/alias.hpp>

#include <txbase/TXPlugin.h>
#include <txbase/TXRefPtr.h>
#include <txpluginqt/engine/QtApplication.h>
#include <txpluginqt/engine/TXGraphicsEngineQT.h>
#include <txpluginqt/support/Failures.h>

namespace
{

struct LoadNotice
{
    LoadNotice() { txqt::AnnounceEngine(); }
};

const LoadNotice loadNotice;

} // namespace

TZObjects::TXRefPtr<TZObjects::TXPlugin> MakeGraphicsEngine()
{
    return TZObjects::TXRefPtr<TZObjects::TXPlugin>(txqt::NewOrNull<TZObjects::TXGraphicsEngineQT>());
}

BOOST_DLL_ALIAS(MakeGraphicsEngine, GetTZPlugIn)
