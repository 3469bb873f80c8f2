#pragma once

#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <random>

/// Random numbers, the same for the same seed on every machine. The standard library's distributions are not used: they
/// differ between implementations.
class RandomSource
{
public:
    explicit RandomSource(unsigned seed) : engine(seed) {}

    /// Any number.
    std::uint32_t Next() { return static_cast<std::uint32_t>(engine()); }
    /// A number from 0 to @p limit - 1.
    template <class Number>
    Number Below(Number limit)
    {
        return static_cast<Number>(Next() % static_cast<std::uint32_t>(limit));
    }
    /// A whole number between @p lowest and @p highest, both included.
    int Int(int lowest, int highest) { return lowest + Below(highest - lowest + 1); }
    double Real(double lowest, double highest) { return lowest + (highest - lowest) * (Next() / 4294967295.0); }
    bool Chance(int percent) { return Int(1, 100) <= percent; }
    template <class Value>
    Value OneOf(std::initializer_list<Value> values)
    {
        return values.begin()[Below(values.size())];
    }
    /// One of the values of a list or an array.
    template <class Values>
    const auto& OneOf(const Values& values)
    {
        return std::begin(values)[static_cast<std::ptrdiff_t>(Below(std::size(values)))];
    }

private:
    std::mt19937 engine;
};
