#pragma once

#include <QFont>

#include <tests/support/QuietTest.h>
#include <txpluginqt/text/LabelCache.h>

#include "CacheSize.h"
#include "NumbersDetail.h"
#include <tests/support/PixelFont.h>

/// A value that says of itself how large it is.
struct Sized
{
    std::size_t bytes = 0;
    int number = 0;

    std::size_t Bytes() const { return bytes; }
};

struct OtherKind
{
    int number = 0;

    static std::size_t Bytes() { return 8; }
};

/// What no entry without a text takes more of beside its value.
constexpr std::size_t kMostPerEntry = 800;

class LabelCacheTest : public QuietTest
{
protected:
    static void SetSize(std::size_t bytes)
    {
        TZObjects::TXGraphicsEngineManager::instance("")->SetLabelCacheSize(bytes);
    }

    /// As a host that sets the size to 0 and back.
    static void Empty() { const CacheSize current(TZObjects::TXGraphicsEngineManager::instance("")->LabelCacheSize()); }

    static QFont Font(int pixels = 20) { return PixelFont(pixels); }

    /// True when the value was cached before.
    static bool Hits(const QString& text, std::size_t bytes = 100, const QFont& font = Font(),
                     const std::vector<qint64>& details = {})
    {
        bool made = false;
        txqt::LabelCache::OfThread().Get<Sized>(font, text, NumbersDetail{details},
                                                [&]
                                                {
                                                    made = true;
                                                    return Sized{bytes, 0};
                                                });
        return !made;
    }

    static bool HitsFont(const QFont& font) { return Hits("text", 100, font); }

    static std::size_t Bytes() { return txqt::LabelCache::OfThread().Bytes(); }

private:
    CacheSize size{std::size_t(1) << 20};
};
