#pragma once

#include <txbase/Export.h>
#include <txbase/TXRefBase.h>

namespace TZObjects
{

/// The object that a loadable plugin hands to its host. A plugin derives from it and overrides what it needs.
class TXBASE_API TXPlugin : public TXRefBase
{
public:
    ~TXPlugin() override;
    /// Prepares the plugin. The host calls it once after loading; an exception makes the loading fail. The default does
    /// nothing.
    virtual void InitPlugin();
    /// Announces that the host lets go of the plugin. The host ignores an exception. The default does nothing.
    virtual void UnloadPlugin();
    /// Returns true when the plugin's code lives in a library that was loaded at run time, which is the default.
    virtual bool IsDll();
};

} // namespace TZObjects
