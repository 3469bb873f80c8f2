#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include <txmap/support/RecentCache.h>

namespace txmap
{

/// What is sent to clients: bytes, which never change, and what HTTP says about them.
struct Content
{
    Content(std::string contentBytes, std::string contentType);

    std::string bytes;
    std::string type; ///< Such as "image/png".
    std::string tag;  ///< The entity tag, in quotes: a hash of the bytes.
};

using ContentPointer = std::shared_ptr<const Content>;

/// Whether the header If-None-Match has a tag, or "*".
bool HasTag(std::string_view header, std::string_view tag);

/// Keeps what was asked for last, up to a number of bytes. Threads may share it.
class ContentCache
{
public:
    explicit ContentCache(std::size_t mostBytes) : contents(mostBytes) {}

    /// What is kept under a key; null for nothing.
    ContentPointer Find(const std::string& key);
    /// Keeps something, unless it is larger than the cache.
    void Keep(const std::string& key, ContentPointer content);
    void Clear();
    /// How much is kept, with an allowance for what a content costs beside its bytes.
    std::size_t Bytes() const;

private:
    mutable std::mutex mutex;
    RecentCache<std::string, Content> contents;
};

} // namespace txmap
