#include <txpluginqt/text/LabelCache.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <iterator>

#include <QGuiApplication>
#include <QHash>

#include <txgraphics/TXGraphicsEngineManager.h>
#include <txpluginqt/text/RichTextDocument.h>

namespace txqt
{
namespace
{

// What an entry costs beside its value, its text and its detail: the entry itself, its key, its place in the index, its
// font.
constexpr std::size_t kEntryBytes = 736;
constexpr std::size_t kSeenPlaces = 16384;

thread_local bool threadIsEnding = false;

std::atomic<unsigned> fontsChanged{0};
std::atomic<QCoreApplication*> watchedApplication{nullptr};

/// The same font without what Qt has loaded for it, which would stay loaded as long as the font is there.
QFont Unloaded(const QFont& font)
{
    QFont unloaded = font;
    // Qt leaves it behind when it changes a shared font.
    unloaded.setPixelSize(font.pixelSize() + 1);
    unloaded.setPixelSize(font.pixelSize());
    return unloaded;
}

} // namespace

FontKey::FontKey(const QFont& font, bool isRich)
    : font(font), dotsPerInch(DotsPerInch(font)), substitutes(SubstitutesHash(font, isRich)),
      loadedFaces(LoadedFaces(font))
{
}

bool FontKey::operator==(const FontKey& other) const
{
    return dotsPerInch == other.dotsPerInch && substitutes == other.substitutes && loadedFaces == other.loadedFaces &&
           font == other.font;
}

LabelCache::Key::Key(const void* type, const QFont& font, const QString& text)
    : type(type), font(font, MayBeRichText(text)), text(text)
{
}

bool LabelCache::Key::operator==(const Key& other) const
{
    return type == other.type && text == other.text && HasDetailOf(other) && font == other.font;
}

std::size_t LabelCache::Key::Hash() const
{
    std::size_t hash = std::hash<const void*>()(type);
    CombineHash(hash, qHash(text));
    // The other properties of a font differ too seldom to be worth their hashing.
    CombineHash(hash, static_cast<std::size_t>(font.font.pixelSize()));
    CombineHash(hash, DetailHash());
    return hash;
}

unsigned LabelCache::FontGeneration()
{
    QCoreApplication* watched = watchedApplication;
    if (QCoreApplication::instance() == watched)
        return fontsChanged;
    auto* const application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    if (application && watchedApplication.compare_exchange_strong(watched, application))
    {
        ++fontsChanged;
        QObject::connect(application, &QGuiApplication::fontDatabaseChanged, [] { ++fontsChanged; });
        QObject::connect(application, &QObject::destroyed, [] { watchedApplication = nullptr; });
    }
    return fontsChanged;
}

LabelCache& LabelCache::OfThread()
{
    if (threadIsEnding)
    {
        // Never destroyed, and never changed.
        static LabelCache& afterwards = *new LabelCache(Lifetime::Process);
        return afterwards;
    }
    static thread_local LabelCache cache(Lifetime::Thread);
    return cache;
}

LabelCache::~LabelCache() { threadIsEnding = true; }

bool LabelCache::IsOn()
{
    if (lifetime == Lifetime::Process)
        return false;
    const unsigned generation = FontGeneration();
    if (generation != fontGeneration)
    {
        Clear();
        fontGeneration = generation;
    }
    const std::size_t size = TZObjects::TXGraphicsEngineManager::instance(TZObjects::TXString())->LabelCacheSize();
    if (size != limit)
    {
        limit = size;
        Shrink(0);
    }
    return limit > 0;
}

const std::shared_ptr<const void>* LabelCache::Find(const Key& key, std::size_t hash)
{
    const auto [first, last] = index.equal_range(hash);
    const auto found = std::find_if(first, last, [&](const auto& indexed) { return *indexed.second->key == key; });
    if (found == last)
        return nullptr;
    entries.splice(entries.begin(), entries, found->second);
    return &found->second->value;
}

void LabelCache::Add(Key& key, std::size_t hash, std::shared_ptr<const void> value, std::size_t valueBytes)
{
    const std::size_t textBytes = static_cast<std::size_t>(key.text.size()) * sizeof(QChar);
    const std::size_t needed = kEntryBytes + valueBytes + textBytes + key.DetailBytes();
    if (needed > limit)
        return;
    Shrink(needed);
    if (cachedFont != key.font.font)
        cachedFont = Unloaded(key.font.font);
    key.font.font = cachedFont;
    entries.push_front({key.Copy(), hash, std::move(value), needed});
    try
    {
        index.emplace(hash, entries.begin());
    }
    catch (const std::bad_alloc&)
    {
        entries.pop_front();
        throw;
    }
    bytes += needed;
}

void LabelCache::Shrink(std::size_t wanted)
{
    while (!entries.empty() && bytes + wanted > limit)
    {
        const auto last = std::prev(entries.end());
        const auto [from, to] = index.equal_range(last->hash);
        index.erase(std::find_if(from, to, [&](const auto& indexed) { return indexed.second == last; }));
        bytes -= last->bytes;
        entries.pop_back();
    }
}

bool LabelCache::SeenBefore(const QFont& font, const QString& text, int what)
{
    if (!IsOn())
        return false;
    if (seen.empty())
        seen.resize(kSeenPlaces);
    std::size_t hash = qHash(text);
    CombineHash(hash, static_cast<std::size_t>(font.pixelSize()));
    CombineHash(hash, static_cast<std::size_t>(what));
    quint32& place = seen[hash % kSeenPlaces];
    const auto rest = static_cast<quint32>(hash >> 32) ^ static_cast<quint32>(hash);
    return std::exchange(place, rest) == rest;
}

void LabelCache::Clear()
{
    index.clear();
    entries.clear();
    bytes = 0;
}

} // namespace txqt
