#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include <QFont>
#include <QString>

#include <txpluginqt/raster/FontState.h>

namespace txqt
{

/// A font, with everything that its values depend on and `QFont::operator==` does not compare.
struct FontKey
{
    /// @param isRich true for a text that may name any family.
    FontKey(const QFont& font, bool isRich);

    QFont font;
    int dotsPerInch;     ///< The resolution that the font was resolved for.
    quint64 substitutes; ///< What the process puts in place of the font's families.
    quint64 loadedFaces; ///< The faces that Qt takes characters from that the font lacks.

    bool operator==(const FontKey& other) const;
};

/// The detail of a cached value that depends on its font and text alone.
struct NoDetail
{
    bool operator==(NoDetail) const { return true; }
    static std::size_t Hash() { return 0; }
    static std::size_t Bytes() { return 0; }
};

/// Mixes a number into a hash.
inline void CombineHash(std::size_t& hash, std::size_t more)
{
    hash ^= more + 0x9e3779b97f4a7c15U + (hash << 6) + (hash >> 2);
}

/// Keeps values that were computed from a font and a text, for the next time the same label is measured or drawn: the
/// frames of a map repeat their names. Each thread has a cache of its own, so that none waits for another.
///
/// The cache holds at most as many bytes as the engine manager says. The value that was used longest ago goes first.
/// The cache is emptied when fonts are added to or taken from the process. Values that depend on a face of coloured
/// bitmaps are not cached.
class LabelCache
{
public:
    /// The thread's own cache. Once the thread's objects are destroyed, as when a host draws from a static destructor,
    /// this is a cache that keeps nothing.
    static LabelCache& OfThread();
    ~LabelCache();
    LabelCache(const LabelCache&) = delete;
    LabelCache& operator=(const LabelCache&) = delete;

    /// How often fonts were added to or taken from the process, or the application object changed.
    static unsigned FontGeneration();

    /// Follows the manager's setting and the fonts of the process. @return false when nothing is cached.
    bool IsOn();

    /// The cached value, or the one that @p make returns.
    /// @param detail a struct of what the value depends on besides the font and the text, with `operator==`, `Hash()`
    /// and `Bytes()`, which says how much memory it holds on the heap. A @p T has `Bytes()` for the whole of it.
    template <class T, class Detail, class Make>
    std::shared_ptr<const T> Get(const QFont& font, const QString& text, Detail detail, Make make)
    {
        return Get<T>(font, text, std::move(detail), std::move(make), [] { return true; });
    }
    /// The same, but caches a new value only when @p isLasting says so after it was made.
    template <class T, class Detail, class Make, class IsLasting>
    std::shared_ptr<const T> Get(const QFont& font, const QString& text, Detail detail, Make make, IsLasting isLasting)
    {
        // A size in points is another number of pixels on another device.
        if (!IsOn() || font.pixelSize() <= 0)
            return std::make_shared<const T>(make());
        KeyOf<T, Detail> key(font, text, std::move(detail));
        const std::size_t hash = key.Hash();
        if (const std::shared_ptr<const void>* const cached = Find(key, hash))
            return std::static_pointer_cast<const T>(*cached);
        auto made = std::make_shared<const T>(make());
        if (isLasting() && !UsesBitmapFace(font, text))
            Add(key, hash, made, made->Bytes());
        return made;
    }

    /// True when the same was asked for before and not too long ago, and values are cached at all. For values that are
    /// not worth caching the first time.
    bool SeenBefore(const QFont& font, const QString& text, int what);

    /// How many bytes are held.
    std::size_t Bytes() const { return bytes; }

private:
    struct Key
    {
        Key(const void* type, const QFont& font, const QString& text);
        Key(const Key&) = default;
        virtual ~Key() = default;

        const void* type; ///< Tells values of different types apart.
        FontKey font;
        QString text;

        bool operator==(const Key& other) const;
        std::size_t Hash() const;
        virtual bool HasDetailOf(const Key& other) const = 0; ///< For a key of the same type.
        virtual std::size_t DetailHash() const = 0;
        virtual std::size_t DetailBytes() const = 0;
        virtual std::unique_ptr<Key> Copy() = 0; ///< Leaves this key without its detail.
    };

    template <class T, class Detail>
    struct KeyOf final : Key
    {
        KeyOf(const QFont& font, const QString& text, Detail detail)
            : Key(&kTypeTag<KeyOf>, font, text), detail(std::move(detail))
        {
        }
        KeyOf(const Key& key, Detail detail) : Key(key), detail(std::move(detail)) {}

        Detail detail;

        bool HasDetailOf(const Key& other) const override { return detail == static_cast<const KeyOf&>(other).detail; }
        std::size_t DetailHash() const override { return detail.Hash(); }
        std::size_t DetailBytes() const override { return detail.Bytes(); }
        std::unique_ptr<Key> Copy() override { return std::make_unique<KeyOf>(*this, std::move(detail)); }
    };

    struct Entry
    {
        std::unique_ptr<const Key> key;
        std::size_t hash;
        std::shared_ptr<const void> value;
        std::size_t bytes;
    };
    using Entries = std::list<Entry>;
    enum class Lifetime
    {
        Thread,
        Process,
    };

    explicit LabelCache(Lifetime lifetime) : lifetime(lifetime) {}

    template <class T>
    static constexpr char kTypeTag = 0; // Its address tells types apart.

    const std::shared_ptr<const void>* Find(const Key& key, std::size_t hash);
    void Add(Key& key, std::size_t hash, std::shared_ptr<const void> value, std::size_t valueBytes);
    void Shrink(std::size_t wanted);
    void Clear();

    const Lifetime lifetime;
    std::vector<quint32> seen; ///< Hashes, each at the place that its lower bits give.
    Entries entries;           ///< The one used last comes first.
    std::unordered_multimap<std::size_t, Entries::iterator> index;
    std::size_t bytes = 0;
    std::size_t limit = 0;
    unsigned fontGeneration = 0;
    QFont cachedFont; ///< The font of the entry that was added last, which the next entries share.
};

} // namespace txqt
