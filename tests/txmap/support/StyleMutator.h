#pragma once

#include <random>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

/// Makes random mistakes in a style, the same ones for the same seed.
class StyleMutator
{
public:
    using Json = nlohmann::ordered_json;

    explicit StyleMutator(unsigned seed) : random(seed) {}

    /// The text of a style with up to three changed values; seldom it is cut.
    std::string Mutated(Json style)
    {
        const std::size_t changes = 1 + Pick(3);
        for (std::size_t i = 0; i < changes; ++i)
        {
            std::vector<Json*> values;
            Collect(style, values);
            Change(*values[1 + Pick(values.size() - 1)], *values[Pick(values.size())]);
        }
        std::string text = style.dump();
        if (Pick(20) == 0)
            text.resize(Pick(text.size()));
        return text;
    }

private:
    std::size_t Pick(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(random); }

    /// All values in a style.
    static void Collect(Json& json, std::vector<Json*>& values)
    {
        values.push_back(&json);
        if (json.is_structured())
            for (Json& item : json)
                Collect(item, values);
    }

    void Change(Json& value, const Json& other)
    {
        static const std::vector<Json> kStrange = {nullptr,
                                                   true,
                                                   -1,
                                                   0,
                                                   1e300,
                                                   -1e300,
                                                   1e-300,
                                                   4294967296.0,
                                                   "",
                                                   "zork",
                                                   "get",
                                                   Json::array(),
                                                   Json::object(),
                                                   Json::array({"zoom"}),
                                                   Json::array({"get", "n"}),
                                                   Json::array({"get", "c"})};
        if (Pick(3) == 0)
        {
            const Json copy = other;
            value = copy;
        }
        else if (value.is_number() && Pick(2) == 0)
            value = value.get<double>() * std::vector<double>{-1.0, 0.0, 1e3, 1e6, 1e-6}[Pick(5)];
        else
            value = kStrange[Pick(kStrange.size())];
    }

    std::mt19937 random;
};
