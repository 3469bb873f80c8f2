#include "CairoSpy.h"

#include <dlfcn.h>

#include <map>

namespace
{

std::map<const unsigned char*, cairo_t*>& Contexts()
{
    static std::map<const unsigned char*, cairo_t*> contexts;
    return contexts;
}

bool failing = false;
double lastRotation = 0.0;

template <class Function>
Function* CairosOwn(Function*, const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" Q_DECL_EXPORT cairo_t* cairo_create(cairo_surface_t* target)
{
    static auto* const create = CairosOwn(&cairo_create, "cairo_create");
    cairo_t* const context = create(target);
    Contexts()[cairo_image_surface_get_data(target)] = context;
    return context;
}

extern "C" Q_DECL_EXPORT cairo_status_t cairo_scaled_font_text_to_glyphs(
    cairo_scaled_font_t* font, double x, double y, const char* utf8, int length, cairo_glyph_t** glyphs,
    int* glyphCount, cairo_text_cluster_t** clusters, int* clusterCount, cairo_text_cluster_flags_t* clusterFlags)
{
    static auto* const convert = CairosOwn(&cairo_scaled_font_text_to_glyphs, "cairo_scaled_font_text_to_glyphs");
    if (failing)
        return CAIRO_STATUS_INVALID_STRING;
    return convert(font, x, y, utf8, length, glyphs, glyphCount, clusters, clusterCount, clusterFlags);
}

extern "C" Q_DECL_EXPORT void cairo_rotate(cairo_t* context, double radians)
{
    static auto* const rotate = CairosOwn(&cairo_rotate, "cairo_rotate");
    lastRotation = radians;
    rotate(context, radians);
}

double LastRotation() { return lastRotation; }

cairo_t* ContextOver(const QImage& image)
{
    const auto found = Contexts().find(image.constBits());
    return found == Contexts().end() ? nullptr : found->second;
}

FailingConversion::FailingConversion() { failing = true; }

FailingConversion::~FailingConversion() { failing = false; }
