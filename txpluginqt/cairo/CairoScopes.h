#pragma once

#include <cairo.h>

#include <txpluginqt/cairo/CairoFontLock.h>

namespace txqt
{

/// Saves a context's state and restores it at the end of the scope.
class CairoStateScope
{
public:
    explicit CairoStateScope(cairo_t* context) : context(context) { cairo_save(context); }
    ~CairoStateScope()
    {
        const auto lock = LockCairoFonts();
        cairo_restore(context);
    }
    CairoStateScope(const CairoStateScope&) = delete;
    CairoStateScope& operator=(const CairoStateScope&) = delete;

private:
    cairo_t* context;
};

/// Sets a context's fill rule and puts its own back at the end of the scope.
class FillRuleScope
{
public:
    FillRuleScope(cairo_t* context, cairo_fill_rule_t rule) : context(context), old(cairo_get_fill_rule(context))
    {
        cairo_set_fill_rule(context, rule);
    }
    ~FillRuleScope() { cairo_set_fill_rule(context, old); }
    FillRuleScope(const FillRuleScope&) = delete;
    FillRuleScope& operator=(const FillRuleScope&) = delete;

private:
    cairo_t* context;
    cairo_fill_rule_t old;
};

} // namespace txqt
