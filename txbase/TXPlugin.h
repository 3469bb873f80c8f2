#pragma once

#include <txbase/Export.h>
#include <txbase/TXRefBase.h>

namespace TZObjects
{

/// Base of the object that a loadable plugin hands to its host.
class TXBASE_API TXPlugin : public TXRefBase
{
public:
    ~TXPlugin() override;
    /// Called by the host once after loading. Does nothing unless a plugin overrides it.
    virtual void InitPlugin();
    /// Called by the host before it lets go of the plugin. Does nothing unless a plugin overrides it.
    virtual void UnloadPlugin();
    /// True when the object lives in a library that was loaded at run time, which is what plugins do by default.
    virtual bool IsDll();
};

} // namespace TZObjects
