#include "ContextSpy.h"

#include <dlfcn.h>

#include <QtGlobal>

namespace
{

cairo_t* lastClipped = nullptr;

} // namespace

// The program exports this one, so that the plugin calls it in place of cairo's own.
extern "C" Q_DECL_EXPORT void cairo_clip(cairo_t* context)
{
    static const auto real = reinterpret_cast<void (*)(cairo_t*)>(dlsym(RTLD_NEXT, "cairo_clip"));
    lastClipped = context;
    real(context);
}

cairo_t* LastClippedContext() { return lastClipped; }
