#pragma once

#include <vector>

#include <QtGlobal>

#include <txpluginqt/text/LabelCache.h>

/// Numbers that a value depends on.
struct NumbersDetail
{
    std::vector<qint64> numbers;

    bool operator==(const NumbersDetail& other) const { return numbers == other.numbers; }
    std::size_t Hash() const
    {
        std::size_t hash = 0;
        for (const qint64 number : numbers)
            txqt::CombineHash(hash, static_cast<std::size_t>(number));
        return hash;
    }
    std::size_t Bytes() const { return numbers.capacity() * sizeof(qint64); }
};
