#include <txmap/symbols/text/SymbolFonts.h>

#include <algorithm>

#include <txgraphics/TXGraphicsEngine.h>
#include <txgraphics/TXGraphicsEngineManager.h>
#include <txmap/labels/FontCatalog.h>
#include <txmap/labels/LetterRuns.h>
#include <txmap/support/Failure.h>

namespace txmap
{

using TZObjects::TXFont;
using TZObjects::TXGraphicsEngine;
using TZObjects::TXGraphicsEngineManager;
using TZObjects::TXRefPtr;

namespace
{

// Backends round what letters measure to whole pixels, though they draw them at parts of pixels. In a font of this
// size, in which faces are designed, that does not count.
constexpr int kMeasuredHeight = 2048;
// Enough for the names of a map, and little memory.
constexpr std::size_t kMostAdvances = 100000;

void Require(bool done)
{
    if (!done)
        throw Failure(ExitCode::Drawing, "the plugin refused to measure a label");
}

/// Fonts measure for cairo if they were made while its switch was on.
class CairoSwitch
{
public:
    explicit CairoSwitch(bool on)
        : manager(*TXGraphicsEngineManager::instance("")), before(manager.CairoDrawingEnabled())
    {
        manager.EnableCairoDrawing(on);
    }
    ~CairoSwitch() { manager.EnableCairoDrawing(before); }
    CairoSwitch(const CairoSwitch&) = delete;
    CairoSwitch& operator=(const CairoSwitch&) = delete;

private:
    TXGraphicsEngineManager& manager;
    bool before;
};

} // namespace

SymbolFace::SymbolFace(TXGraphicsEngine& engine, FontName name, TextPath path)
    : engine(engine), name(std::move(name)), path(path)
{
}

double SymbolFace::Advance(const std::wstring& text) const { return text.empty() ? 0.0 : Measure(text); }

double SymbolFace::KeptAdvance(const std::wstring& text) const
{
    const auto found = advances.find(text);
    if (found != advances.end())
        return found->second;
    if (advances.size() >= kMostAdvances)
        advances.clear();
    return advances.emplace(text, Advance(text)).first->second;
}

const FaceLetter& SymbolFace::Letter(wchar_t letter) const
{
    FaceLetter& kept = letters[letter];
    if (kept.text.isEmpty())
    {
        const std::wstring text(1, letter);
        kept = {text, Advance(text)};
    }
    return kept;
}

double SymbolFace::Kerning(wchar_t first, wchar_t second) const
{
    const std::uint64_t pair = static_cast<std::uint64_t>(first) << 32U | static_cast<std::uint64_t>(second);
    const auto found = kernings.find(pair);
    if (found != kernings.end())
        return found->second;
    const double apart = Letter(first).advance + Letter(second).advance;
    return kernings.emplace(pair, Advance({first, second}) - apart).first->second;
}

const TXRefPtr<TXFont>& SymbolFace::Font(int height, double spacing) const { return Sized(height, spacing).font; }

double SymbolFace::Ascent(int height) const { return Sized(height, 0.0).ascent; }

const SymbolFace::SizedFont& SymbolFace::Sized(int height, double spacing) const
{
    SizedFont& sized = fonts[{height, spacing}];
    if (sized.font)
        return sized;
    const CairoSwitch cairo(path == TextPath::Cairo);
    TXRefPtr<TXFont> font(engine.NewFont());
    Require(font && font->Create());
    font->SetFontHeight(height);
    font->SetFontWeight(name.weight);
    font->SetFontItalic(name.italic);
    font->SetFontName(name.family.c_str());
    font->SetWordSpacing(spacing);
    double whole = 0.0;
    double descent = 0.0;
    font->GetFontMetricsInfo(whole, sized.ascent, descent, path == TextPath::Qt);
    sized.font = font;
    return sized;
}

double SymbolFace::Measure(const std::wstring& text) const
{
    const TXFont& font = *Font(kMeasuredHeight);
    if (path == TextPath::Cairo)
        return LetterRuns(font, 0.0).Measure(text).width / kMeasuredHeight;
    int width = 0;
    int height = 0;
    Require(font.GetTextExtent(text, width, height, true));
    return static_cast<double>(std::max(0, width)) / kMeasuredHeight;
}

SymbolFonts::SymbolFonts(TXGraphicsEngine& engine, OnMissing onMissing)
    : engine(engine), onMissing(std::move(onMissing))
{
}

SymbolFonts::~SymbolFonts() = default;

const SymbolFace& SymbolFonts::Find(const std::vector<std::string>& stack, TextPath path)
{
    const SymbolFace*& face = stacks[{stack, path}];
    if (face)
        return *face;
    const FontName name = Choose(stack);
    std::unique_ptr<SymbolFace>& kept = faces[{name, path}];
    if (!kept)
        kept = std::make_unique<SymbolFace>(engine, name, path);
    face = kept.get();
    return *face;
}

FontName SymbolFonts::Choose(const std::vector<std::string>& stack)
{
    std::optional<FontName> chosen;
    for (const std::string& name : stack)
    {
        if (missing.count(name) != 0)
            continue;
        if (std::optional<FontName> found = FindFont(name))
        {
            chosen = std::move(found);
            break;
        }
        missing.insert(name);
        if (onMissing)
            onMissing(name);
    }
    if (chosen)
        return *chosen;
    return FontInstead(stack.empty() ? "" : stack.front(), FontCatalog::Resolved("sans-serif"));
}

} // namespace txmap
