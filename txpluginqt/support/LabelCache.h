#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include <QFont>
#include <QString>

#include <txpluginqt/support/FontState.h>

/// What was computed from a font and a text, kept for the next time the same label is measured or drawn: the frames of
/// a map repeat their names. Each thread has a cache of its own, so that none waits for another.
///
/// The cache holds at most as many bytes as the engine manager says; what was not used for the longest time goes
/// first. It is emptied when fonts are added to or taken from the process. What a face of coloured bitmaps takes part
/// in is not kept.
class LabelCache
{
public:
    /// What a value depends on besides the font and the text.
    using Details = std::vector<qint64>;

    /// The thread's own cache; one that keeps nothing once the thread's objects are destroyed, as when a host draws
    /// from a static destructor.
    static LabelCache& OfThread();
    ~LabelCache();
    LabelCache(const LabelCache&) = delete;
    LabelCache& operator=(const LabelCache&) = delete;

    /// How often fonts were added to or taken from the process, or the application object changed.
    static unsigned FontGeneration();

    /// Brings the cache in line with the manager's setting and the fonts of the process. @return false when nothing is
    /// to be kept.
    bool IsOn();
    /// The kept value, or the one that @p make returns. A @p T says by `Bytes()` how much memory it holds.
    template <class T, class Make>
    std::shared_ptr<const T> Get(const QFont& font, const QString& text, Details details, Make make)
    {
        return Get<T>(font, text, std::move(details), std::move(make), [] { return true; });
    }
    /// The same, but what was made is kept only when @p isLasting says so afterwards.
    template <class T, class Make, class IsLasting>
    std::shared_ptr<const T> Get(const QFont& font, const QString& text, Details details, Make make,
                                 IsLasting isLasting)
    {
        // The same number of points is as many pixels as the font's device has.
        if (!IsOn() || font.pixelSize() <= 0)
            return std::make_shared<const T>(make());
        Key key(&kTypeTag<T>, font, text, std::move(details));
        const std::size_t hash = key.Hash();
        if (const std::shared_ptr<const void>* const kept = Find(key, hash))
            return std::static_pointer_cast<const T>(*kept);
        auto made = std::make_shared<const T>(make());
        if (isLasting() && !UsesBitmapFace(font, text))
            Keep(std::move(key), hash, made, made->Bytes());
        return made;
    }

    /// True when the same was asked before and not too long ago, and is kept where anything is: for values that are not
    /// worth keeping the first time.
    bool WasSeen(const QFont& font, const QString& text, int what);

    /// How many bytes are held.
    std::size_t Bytes() const { return bytes; }

private:
    struct Key
    {
        Key(const void* type, const QFont& font, const QString& text, Details details);

        const void* type; ///< Tells values of different types apart.
        QFont font;
        int dotsPerInch;     ///< Which the comparison of fonts does not see.
        quint64 substitutes; ///< What the process puts in place of the font's families.
        quint64 loadedFaces; ///< What characters are taken from that the font lacks.
        QString text;
        Details details;

        bool operator==(const Key& other) const;
        std::size_t Hash() const;
    };
    struct Entry
    {
        Key key;
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
    void Keep(Key key, std::size_t hash, std::shared_ptr<const void> value, std::size_t valueBytes);
    void Shrink(std::size_t wanted);
    void Clear();

    const Lifetime lifetime;
    std::vector<quint32> seen; ///< A hash in each place, by its lower bits.
    Entries entries;           ///< The one used last comes first.
    std::unordered_multimap<std::size_t, Entries::iterator> index;
    std::size_t bytes = 0;
    std::size_t limit = 0;
    unsigned fontGeneration = 0;
    QFont keptFont; ///< Of the entry kept last; the next ones share it.
};
