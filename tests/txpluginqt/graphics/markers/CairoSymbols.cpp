#include "CairoSymbols.h"

#include <cmath>
#include <cstring>
#include <vector>

#include "CairoSpy.h"

using namespace TZObjects;

namespace
{

std::vector<double> PathOf(cairo_t* context)
{
    std::vector<double> numbers;
    cairo_path_t* const path = cairo_copy_path(context);
    for (int i = 0; i < path->num_data; i += path->data[i].header.length)
    {
        numbers.push_back(path->data[i].header.type);
        for (int j = 1; j < path->data[i].header.length; ++j)
            numbers.insert(numbers.end(), {path->data[i + j].point.x, path->data[i + j].point.y});
    }
    cairo_path_destroy(path);
    return numbers;
}

std::vector<double> ClipOf(cairo_t* context)
{
    std::vector<double> numbers;
    cairo_rectangle_list_t* const list = cairo_copy_clip_rectangle_list(context);
    for (int i = 0; i < list->num_rectangles; ++i)
    {
        const cairo_rectangle_t& r = list->rectangles[i];
        numbers.insert(numbers.end(), {r.x, r.y, r.width, r.height});
    }
    cairo_rectangle_list_destroy(list);
    return numbers;
}

std::vector<double> NumbersOf(cairo_t* context)
{
    cairo_matrix_t matrix;
    cairo_matrix_t fontMatrix;
    cairo_get_matrix(context, &matrix);
    cairo_get_font_matrix(context, &fontMatrix);
    std::vector<double> numbers{matrix.xx,     matrix.yx,     matrix.xy,     matrix.yy,
                                matrix.x0,     matrix.y0,     fontMatrix.xx, fontMatrix.yx,
                                fontMatrix.xy, fontMatrix.yy, fontMatrix.x0, fontMatrix.y0};
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
    double alpha = 0.0;
    EXPECT_EQ(cairo_pattern_get_rgba(cairo_get_source(context), &red, &green, &blue, &alpha), CAIRO_STATUS_SUCCESS);
    numbers.insert(numbers.end(), {red, green, blue, alpha, cairo_get_line_width(context), cairo_get_tolerance(context),
                                   double(cairo_get_line_cap(context)), double(cairo_get_line_join(context)),
                                   double(cairo_get_operator(context)), double(cairo_get_antialias(context)),
                                   double(cairo_get_fill_rule(context))});
    return numbers;
}

std::string FaceOf(cairo_t* context)
{
    cairo_font_face_t* const face = cairo_get_font_face(context);
    return std::string(cairo_toy_font_face_get_family(face)) + ", slant " +
           std::to_string(cairo_toy_font_face_get_slant(face)) + ", weight " +
           std::to_string(cairo_toy_font_face_get_weight(face));
}

bool SameFontOptions(cairo_t* left, cairo_t* right)
{
    cairo_font_options_t* const leftOptions = cairo_font_options_create();
    cairo_font_options_t* const rightOptions = cairo_font_options_create();
    cairo_get_font_options(left, leftOptions);
    cairo_get_font_options(right, rightOptions);
    const bool same = cairo_font_options_equal(leftOptions, rightOptions);
    cairo_font_options_destroy(leftOptions);
    cairo_font_options_destroy(rightOptions);
    return same;
}

} // namespace

void DrawDirectly(cairo_t* context, const CharacterSymbol& symbol, const TXColor& color)
{
    cairo_set_font_size(context, CharacterSymbol::Pixels(symbol.height));
    cairo_scaled_font_t* const font = cairo_get_scaled_font(context);
    cairo_save(context);
    cairo_glyph_t* glyphs = nullptr;
    int count = 0;
    const bool converted = !symbol.Text().at(0).isSurrogate() &&
                           cairo_scaled_font_text_to_glyphs(font, 0, 0, symbol.Text().toUtf8().constData(), -1, &glyphs,
                                                            &count, nullptr, nullptr, nullptr) == CAIRO_STATUS_SUCCESS;
    if (converted)
    {
        cairo_text_extents_t extents;
        cairo_scaled_font_glyph_extents(font, glyphs, count, &extents);
        cairo_translate(context, symbol.x - extents.width * 0.5,
                        symbol.y + std::abs(extents.y_bearing) - extents.height * 0.5);
        if (symbol.angle >= 1.0)
            cairo_rotate(context, symbol.angle * 3.141592653589793 / 180);
        cairo_move_to(context, 0, 0);
        cairo_set_source_rgba(context, color.getR() / 255.0, color.getG() / 255.0, color.getB() / 255.0,
                              color.getA() / 255.0);
        cairo_show_glyphs(context, glyphs, count);
        if (symbol.height < 15.0)
            cairo_show_glyphs(context, glyphs, count);
        cairo_glyph_free(glyphs);
    }
    cairo_restore(context);
}

::testing::AssertionResult SameContextState(cairo_t* actual, cairo_t* expected)
{
    for (cairo_t* const context : {actual, expected})
        if (cairo_status(context) != CAIRO_STATUS_SUCCESS)
            return ::testing::AssertionFailure() << cairo_status_to_string(cairo_status(context));
    if (NumbersOf(actual) != NumbersOf(expected))
        return ::testing::AssertionFailure() << "matrix, font size, source or strokes differ";
    if (PathOf(actual) != PathOf(expected))
        return ::testing::AssertionFailure() << "the path differs";
    if (ClipOf(actual) != ClipOf(expected))
        return ::testing::AssertionFailure() << "the clip differs";
    if (FaceOf(actual) != FaceOf(expected))
        return ::testing::AssertionFailure() << "the face is " << FaceOf(actual) << ", not " << FaceOf(expected);
    if (!SameFontOptions(actual, expected))
        return ::testing::AssertionFailure() << "the font options differ";
    return ::testing::AssertionSuccess();
}

void CairoMarkerTwins::SelectDirectly(const CharacterSymbol& symbol, const Look& look)
{
    if (Font().GetFontName().toStdWString() == symbol.fontName)
        return;
    const std::string name = QString::fromStdWString(symbol.fontName).toStdString();
    cairo_select_font_face(Direct(), name.c_str(),
                           look.italic == TXFont::ItalicNone ? CAIRO_FONT_SLANT_NORMAL : CAIRO_FONT_SLANT_ITALIC,
                           look.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
}

bool CairoMarkerTwins::Draw(const CharacterSymbol& symbol, const Look& look)
{
    SelectDirectly(symbol, look);
    DrawDirectly(Direct(), symbol, look.pen);
    return ::Draw(Surface(), symbol);
}

cairo_t* CairoMarkerTwins::Context() { return ContextOver(Actual()); }

::testing::AssertionResult CairoMarkerTwins::SameWithState()
{
    const ::testing::AssertionResult state = SameContextState(Context(), Direct());
    return state ? Same() : state;
}
