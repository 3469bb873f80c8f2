#pragma once

#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include <txmap/style/Expression.h>
#include <txmap/style/document/MapStyle.h>

namespace txmap
{

/// A number by which features are ordered. It may be as large as a number of inhabitants.
struct SortKey
{
    double value = 0.0;
};

/// @name Values of expressions as painters use them
/// Each leaves the present value where the expression gives something else.
/// @{
void Take(const Value& value, double& result); ///< No larger than any picture.
void Take(const Value& value, SortKey& result);
void Take(const Value& value, bool& result);
void Take(const Value& value, Color& result);
void Take(const Value& value, std::string& result); ///< Texts, and the names of images.
void Take(const Value& value, std::array<double, 2>& result);
void Take(const Value& value, std::vector<double>& result);
void Take(const Value& value, std::vector<Color>& result);
void Take(const Value& value, std::array<double, 4>& result); ///< Paddings as well: top, right, bottom, left.
void Take(const Value& value, std::vector<std::string>& result);
void Take(const Value& value, Formatted& result);
void Take(const Value& value, VariableAnchorOffsets& result);
/// @}

/// A property of a layer at one zoom: evaluated once if it is the same for all features.
template <class T>
class LayerProperty
{
public:
    /// @param zoom at which it is evaluated: patterns and dashes change at whole zooms only.
    /// @param context what else there is beside the feature.
    /// @param fallback what counts if the layer does not set it.
    LayerProperty(const StyleLayer& layer, const char* name, double zoom, const EvaluationContext& context,
                  const T& fallback = T())
        : value(fallback)
    {
        const Expression* const property = layer.Find(name);
        if (!property)
            return;
        isSet = true;
        if (!property->IsFeatureConstant())
        {
            expression = property->AtZoom(zoom);
            return;
        }
        EvaluationContext atZoom = context;
        atZoom.zoom = zoom;
        Take(property->EvaluateOrDefault(atZoom), value);
    }

    /// False if neither the layer nor the reference says what it is.
    bool IsSet() const { return isSet; }
    bool IsConstant() const { return !expression; }
    /// Of constants only.
    const T& Constant() const { return value; }
    T At(const EvaluationContext& context) const
    {
        T result = value;
        if (expression)
            Take(expression->EvaluateOrDefault(context), result);
        return result;
    }

private:
    T value;
    bool isSet = false;
    std::optional<Expression> expression;
};

} // namespace txmap
