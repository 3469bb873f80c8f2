#pragma once

#include <cstddef>

#include <txgraphics/TXGraphicsEngineManager.h>
#include <txpluginqt/text/LabelCache.h>

/// Gives the cache of labels a size, and starts with an empty one; puts the old size back when it goes.
class CacheSize
{
public:
    explicit CacheSize(std::size_t bytes) : size(bytes), before(Manager().LabelCacheSize()) { Empty(); }
    ~CacheSize() { Manager().SetLabelCacheSize(before); }
    CacheSize(const CacheSize&) = delete;
    CacheSize& operator=(const CacheSize&) = delete;

    /// Lets go of all that this thread keeps.
    void Empty() const
    {
        Manager().SetLabelCacheSize(0);
        txqt::LabelCache::OfThread().IsOn();
        Manager().SetLabelCacheSize(size);
        txqt::LabelCache::OfThread().IsOn();
    }

private:
    static TZObjects::TXGraphicsEngineManager& Manager() { return *TZObjects::TXGraphicsEngineManager::instance(""); }

    std::size_t size;
    std::size_t before;
};

constexpr std::size_t kUsualCacheSize = std::size_t(32) << 20;
