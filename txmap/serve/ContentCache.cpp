#include <txmap/serve/ContentCache.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <utility>

namespace txmap
{
namespace
{

// Nodes, key and pointers of an entry.
constexpr std::size_t kEntryCost = 512;

std::string TagOf(std::string_view bytes)
{
    // FNV-1a.
    std::uint64_t hash = 0xcbf29ce484222325u;
    for (const char byte : bytes)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3u;
    char text[48];
    std::snprintf(text, sizeof text, "\"%016llx-%zx\"", static_cast<unsigned long long>(hash), bytes.size());
    return text;
}

std::size_t CostOf(const Content& content) { return content.bytes.size() + kEntryCost; }

} // namespace

Content::Content(std::string contentBytes, std::string contentType)
    : bytes(std::move(contentBytes)), type(std::move(contentType)), tag(TagOf(bytes))
{
}

bool HasTag(std::string_view header, std::string_view tag)
{
    while (!header.empty())
    {
        const std::size_t comma = std::min(header.find(','), header.size());
        std::string_view part = header.substr(0, comma);
        header.remove_prefix(std::min(comma + 1, header.size()));
        part.remove_prefix(std::min(part.find_first_not_of(" \t"), part.size()));
        part = part.substr(0, part.find_last_not_of(" \t") + 1);
        // Proxies make tags weak when they compress.
        if (part.substr(0, 2) == "W/")
            part.remove_prefix(2);
        if (part == tag || part == "*")
            return true;
    }
    return false;
}

ContentPointer ContentCache::Find(const std::string& key)
{
    const std::lock_guard<std::mutex> guard(mutex);
    return contents.Find(key);
}

void ContentCache::Keep(const std::string& key, ContentPointer content)
{
    const std::lock_guard<std::mutex> guard(mutex);
    const std::size_t cost = CostOf(*content);
    contents.Keep(key, std::move(content), cost);
}

void ContentCache::Clear()
{
    const std::lock_guard<std::mutex> guard(mutex);
    contents.Clear();
}

std::size_t ContentCache::Bytes() const
{
    const std::lock_guard<std::mutex> guard(mutex);
    return contents.Bytes();
}

} // namespace txmap
