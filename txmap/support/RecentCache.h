#pragma once

#include <cstddef>
#include <iterator>
#include <list>
#include <map>
#include <memory>
#include <utility>

namespace txmap
{

/// Keeps what was asked for last, up to a number of bytes. Not for several threads.
template <class Key, class Value>
class RecentCache
{
public:
    explicit RecentCache(std::size_t mostBytes) : mostBytes(mostBytes) {}

    /// What is kept under a key; null for nothing.
    std::shared_ptr<const Value> Find(const Key& key)
    {
        const auto place = places.find(key);
        if (place == places.end())
            return nullptr;
        entries.splice(entries.begin(), entries, place->second);
        return place->second->value;
    }
    /// Keeps a value in place of what was kept under its key, unless it is larger than the cache.
    /// @param cost the bytes that it counts for.
    void Keep(const Key& key, std::shared_ptr<const Value> value, std::size_t cost)
    {
        if (const auto place = places.find(key); place != places.end())
            Remove(place->second);
        if (cost > mostBytes)
            return;
        bytes += cost;
        entries.push_front({key, std::move(value), cost});
        places[key] = entries.begin();
        while (bytes > mostBytes)
            Remove(std::prev(entries.end()));
    }
    void Clear()
    {
        entries.clear();
        places.clear();
        bytes = 0;
    }
    std::size_t Bytes() const { return bytes; }

private:
    struct Entry
    {
        Key key;
        std::shared_ptr<const Value> value;
        std::size_t cost;
    };
    using Place = typename std::list<Entry>::iterator;

    void Remove(Place entry)
    {
        bytes -= entry->cost;
        places.erase(entry->key);
        entries.erase(entry);
    }

    std::size_t mostBytes;
    std::list<Entry> entries; ///< What was asked for last comes first.
    std::map<Key, Place> places;
    std::size_t bytes = 0;
};

} // namespace txmap
