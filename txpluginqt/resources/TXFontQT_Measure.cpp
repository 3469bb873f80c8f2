// Measuring, as Qt draws and as cairo draws.
#include <txpluginqt/resources/TXFontQT.h>

#include <algorithm>
#include <utility>
#include <vector>

#include <QFont>
#include <QFontMetrics>
#include <QFontMetricsF>
#include <QStringList>

#include <txpluginqt/cairo/CairoFont.h>
#include <txpluginqt/cairo/CairoFontLock.h>
#include <txpluginqt/raster/FontState.h>
#include <txpluginqt/support/Conversions.h>
#include <txpluginqt/support/Failures.h>
#include <txpluginqt/text/LabelCache.h>
#include <txpluginqt/text/QtFonts.h>
#include <txpluginqt/text/RichTextDocument.h>
#include <txpluginqt/text/RichTextTags.h>

using namespace txqt;

namespace TZObjects
{
namespace
{

QSizeF RichExtent(const QString& html, const QFont& font) { return RichTextDocument(html, font).size(); }

/// What the two variants of each operation measure with Qt.
enum class Measured
{
    Line,
    LineInWholeUnits,
    Block,
    BlockInWholeUnits,
    WidestCharacter,
};

/// What an extent depends on besides the font and the text.
struct MeasureDetail
{
    Measured what;

    bool operator==(const MeasureDetail& other) const { return what == other.what; }
    std::size_t Hash() const { return static_cast<std::size_t>(what); }
    static std::size_t Bytes() { return 0; }
};

/// Whatever was measured.
struct Extent
{
    double width = 0.0;
    double height = 0.0;
    double ascent = 0.0;
    double descent = 0.0;

    static std::size_t Bytes() { return sizeof(Extent); }
};

/// Measures a label that has not been converted to HTML yet, or finds what the same measured before: a host measures
/// its labels to place them, frame after frame.
template <class Measure>
Extent Cached(const QFont& font, const TXString& text, Measured what, Measure measure)
{
    QString label = ToQString(text);
    LabelCache& cache = LabelCache::OfThread();
    // Measuring is nearly as cheap as caching, and hosts measure many names that they do not draw.
    if (!cache.SeenBefore(font, label, static_cast<int>(what)))
        return measure(std::move(label));
    return *cache.Get<Extent>(font, label, MeasureDetail{what}, [&] { return measure(label); });
}

/// Half up, the way whole units are asked for; sizes are not negative.
int Rounded(qreal size) { return Truncated(size + 0.5); }

double TextWidth(cairo_t* context, const TXString& text)
{
    cairo_text_extents_t extents{};
    const auto lock = LockCairoFonts();
    cairo_text_extents(context, text.toUTF8().c_str(), &extents);
    return extents.width;
}

/// The widest line and the sum of the lines' heights.
struct BlockExtent : Extent
{
    void Add(double lineWidth, double lineHeight)
    {
        width = std::max(width, lineWidth);
        height += lineHeight;
    }
};

Extent CairoBlockExtent(cairo_t* context, const TXString& text, double spacing)
{
    Extent block;
    const std::vector<TXString> lines = text.split(L'\n');
    for (const TXString& line : lines)
        block.width = std::max(block.width, (line.length() - 1) * spacing + TextWidth(context, line));
    block.height = static_cast<double>(lines.size()) * FontExtentsOf(context).height;
    return block;
}

/// Most labels are of one line, and need no list of lines.
template <class Add>
void ForEachLine(const QString& text, Add add)
{
    if (!text.contains(QLatin1Char('\n')))
        return add(text);
    for (const QString& line : text.split(QLatin1Char('\n')))
        add(line);
}

Extent QtBlockExtent(QString label, const QFont& font)
{
    ConvertRichTextTags(label);
    const QFontMetricsF metrics(font);
    BlockExtent block;
    ForEachLine(label,
                [&](const QString& line)
                {
                    const QSizeF size = IsRichText(line) ? RichExtent(line, font) : metrics.boundingRect(line).size();
                    block.Add(size.width(), size.height());
                });
    return block;
}

Extent QtBlockExtentInWholeUnits(QString label, const QFont& font)
{
    ConvertRichTextTags(label);
    const QFontMetrics metrics(font);
    BlockExtent block;
    ForEachLine(label,
                [&](const QString& line)
                {
                    const QSizeF rich = IsRichText(line) ? RichExtent(line, font) : QSizeF();
                    const QSize size = rich.isValid() ? QSize(Truncated(rich.width()), Truncated(rich.height()))
                                                      : metrics.boundingRect(line).size();
                    block.Add(size.width(), size.height());
                });
    return block;
}

} // namespace

struct TXFontQT::CachedMetrics
{
    CachedMetrics(const QFont& measured, unsigned generation)
        : font(measured), dotsPerInch(DotsPerInch(measured)), generation(generation)
    {
        const QFontMetricsF metrics(font);
        exact = {0.0, metrics.height(), metrics.ascent(), metrics.descent()};
        const QFontMetrics inWholeUnits(font);
        whole = {0.0, double(inWholeUnits.height()), double(inWholeUnits.ascent()), double(inWholeUnits.descent())};
    }

    QFont font;
    int dotsPerInch;
    unsigned generation;
    Extent exact;
    Extent whole;
};

bool TXFontQT::GetTextExtent(const TXString& text, double& textWidth, double& textHeight, bool useQt) const
{
    if (useQt ? !CanMeasureWithQt() : !measureContext)
        return false;
    return Succeeds(
        [&]
        {
            if (!useQt)
            {
                textWidth = TextWidth(measureContext.get(), text);
                textHeight = FontExtentsOf(measureContext.get()).height;
                return;
            }
            const Extent extent =
                Cached(*Font(), text, Measured::Line,
                       [&](QString label)
                       {
                           ConvertRichTextTags(label);
                           if (IsRichText(label))
                           {
                               const QSizeF size = RichExtent(label, *Font());
                               return Extent{size.width(), size.height()};
                           }
                           const QFontMetricsF metrics(*Font());
                           const QRectF bounds = metrics.boundingRect(label);
                           return Extent{std::max(metrics.horizontalAdvance(label), bounds.width()), bounds.height()};
                       });
            textWidth = extent.width;
            textHeight = extent.height;
        });
}

bool TXFontQT::GetTextExtent(const TXString& text, int& textWidth, int& textHeight, bool useQt) const
{
    if (useQt ? !CanMeasureWithQt() : !measureContext)
        return false;
    return Succeeds(
        [&]
        {
            if (!useQt)
            {
                textWidth = Truncated(TextWidth(measureContext.get(), text));
                textHeight = Truncated(FontExtentsOf(measureContext.get()).height);
                return;
            }
            const Extent extent =
                Cached(*Font(), text, Measured::LineInWholeUnits,
                       [&](QString label)
                       {
                           ConvertRichTextTags(label);
                           if (IsRichText(label))
                           {
                               const QSizeF size = RichExtent(label, *Font());
                               return Extent{double(Rounded(size.width())), double(Rounded(size.height()))};
                           }
                           // The advance alone: unlike in the other variant the bounds do not widen it.
                           const QFontMetrics metrics(*Font());
                           return Extent{double(metrics.horizontalAdvance(label)),
                                         double(metrics.boundingRect(label).height())};
                       });
            textWidth = static_cast<int>(extent.width);
            textHeight = static_cast<int>(extent.height);
        });
}

bool TXFontQT::GetMultiTextExtent(const TXString& text, double& textWidth, double& textHeight, bool useQt) const
{
    textWidth = 0.0;
    textHeight = 0.0;
    if (useQt ? !CanMeasureWithQt() : !measureContext)
        return false;
    return Succeeds(
        [&]
        {
            const Extent block = useQt ? Cached(*Font(), text, Measured::Block,
                                                [&](QString label) { return QtBlockExtent(std::move(label), *Font()); })
                                       : CairoBlockExtent(measureContext.get(), text, GetWordSpacing());
            textWidth = block.width;
            textHeight = block.height;
        });
}

bool TXFontQT::GetMultiTextExtent(const TXString& text, int& textWidth, int& textHeight, bool useQt) const
{
    textWidth = 0;
    textHeight = 0;
    if (useQt ? !CanMeasureWithQt() : !measureContext)
        return false;
    return Succeeds(
        [&]
        {
            const Extent block =
                useQt ? Cached(*Font(), text, Measured::BlockInWholeUnits,
                               [&](QString label) { return QtBlockExtentInWholeUnits(std::move(label), *Font()); })
                      : CairoBlockExtent(measureContext.get(), text, GetWordSpacing());
            textWidth = Truncated(block.width);
            textHeight = Truncated(block.height);
        });
}

void TXFontQT::GetFontMetricsInfo(double& height, double& ascent, double& descent, bool useQt) const
{
    if (!useQt && measureContext)
    {
        const cairo_font_extents_t extents = FontExtentsOf(measureContext.get());
        height = extents.height;
        ascent = extents.ascent;
        descent = extents.descent;
    }
    if (useQt && CanMeasureWithQt())
    {
        Succeeds(
            [&]
            {
                const CachedMetrics& metrics = Metrics();
                height = metrics.exact.height;
                ascent = metrics.exact.ascent;
                descent = metrics.exact.descent;
            });
    }
}

void TXFontQT::GetFontMetricsInfo(int& height, int& ascent, int& descent, bool useQt) const
{
    if (!useQt && measureContext)
    {
        const cairo_font_extents_t extents = FontExtentsOf(measureContext.get());
        height = Truncated(extents.height);
        ascent = Truncated(extents.ascent);
        descent = Truncated(extents.descent);
    }
    if (useQt && CanMeasureWithQt())
    {
        Succeeds(
            [&]
            {
                const CachedMetrics& metrics = Metrics();
                height = static_cast<int>(metrics.whole.height);
                ascent = static_cast<int>(metrics.whole.ascent);
                descent = static_cast<int>(metrics.whole.descent);
            });
    }
}

double TXFontQT::GetMaxCharWidthOfText(const TXString& text, bool useQt) const
{
    if (!useQt && !measureContext)
        return GetFontHeight();
    if (text.isEmpty() || (useQt && !CanMeasureWithQt()))
        return 0.0;
    return ResultOr(0.0,
                    [&]
                    {
                        // An average, where Qt's path answers with the widest character.
                        if (!useQt)
                            return TextWidth(measureContext.get(), text) / text.length();
                        return Cached(*Font(), text, Measured::WidestCharacter,
                                      [&](const QString& label)
                                      {
                                          const QFontMetricsF metrics(*Font());
                                          Extent widest;
                                          for (const QChar character : label)
                                              widest.width =
                                                  std::max(widest.width, metrics.horizontalAdvance(character));
                                          return widest;
                                      })
                            .width;
                    });
}

const TXFontQT::CachedMetrics& TXFontQT::Metrics() const
{
    const unsigned generation = LabelCache::FontGeneration();
    // While the font is there, Qt does not look at substitutes again.
    const bool isCurrent = cachedMetrics && cachedMetrics->generation == generation &&
                           cachedMetrics->dotsPerInch == DotsPerInch(*Font()) && cachedMetrics->font == *Font();
    if (!isCurrent)
        cachedMetrics = std::make_shared<const CachedMetrics>(*Font(), generation);
    return *cachedMetrics;
}

bool TXFontQT::CanMeasureWithQt() const { return Font() && QtTextIsAvailable(); }

} // namespace TZObjects
