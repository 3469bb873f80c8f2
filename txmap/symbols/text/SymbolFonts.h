#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <txbase/TXRefPtr.h>
#include <txbase/TXString.h>
#include <txgraphics/TXFont.h>
#include <txmap/labels/TextPath.h>
#include <txmap/symbols/text/FontName.h>

namespace TZObjects
{
class TXGraphicsEngine;
} // namespace TZObjects

namespace txmap
{

/// A letter of a face.
struct FaceLetter
{
    TZObjects::TXString text;
    double advance = 0.0; ///< In ems.
};

/// A face with one engine: measures texts once, and makes the fonts that they are drawn with. Texts are as `PlainText`
/// returns them.
///
/// Every operation throws a `Failure` with `ExitCode::Drawing` when the backend refuses.
class SymbolFace
{
public:
    SymbolFace(TZObjects::TXGraphicsEngine& engine, FontName name, TextPath path);

    TextPath Path() const { return path; }
    const FontName& Name() const { return name; }

    /// The advance of one line of text, in ems.
    double Advance(const std::wstring& text) const;
    /// The same of a text that comes again, as clusters of letters and names do; it is kept.
    double KeptAdvance(const std::wstring& text) const;
    /// A letter that stands alone, whatever its neighbours are. It lives as long as the face.
    const FaceLetter& Letter(wchar_t letter) const;
    /// By how much two such letters stand closer to each other than their advances say, in ems; negative then.
    double Kerning(wchar_t first, wchar_t second) const;
    /// A font to draw with.
    /// @param height of the em, in whole pixels.
    /// @param spacing after each letter, in pixels.
    const TZObjects::TXRefPtr<TZObjects::TXFont>& Font(int height, double spacing = 0.0) const;
    /// How far the first baseline of a label in that font lies below its top, in pixels.
    double Ascent(int height) const;

private:
    struct SizedFont
    {
        TZObjects::TXRefPtr<TZObjects::TXFont> font;
        double ascent = 0.0;
    };
    const SizedFont& Sized(int height, double spacing) const;
    double Measure(const std::wstring& text) const;

    TZObjects::TXGraphicsEngine& engine;
    FontName name;
    TextPath path;
    mutable std::map<std::pair<int, double>, SizedFont> fonts; ///< By height and spacing.
    mutable std::unordered_map<std::wstring, double> advances;
    mutable std::unordered_map<wchar_t, FaceLetter> letters;
    mutable std::unordered_map<std::uint64_t, double> kernings; ///< By both letters.
};

/// The faces of a map's labels. One thread at a time uses it.
class SymbolFonts
{
public:
    using OnMissing = std::function<void(const std::string& name)>;

    /// @param engine where fonts come from; it must outlive this object.
    /// @param onMissing hears of each name once that is not installed, when a stack with it is first asked for.
    SymbolFonts(TZObjects::TXGraphicsEngine& engine, OnMissing onMissing);
    ~SymbolFonts();
    SymbolFonts(const SymbolFonts&) = delete;
    SymbolFonts& operator=(const SymbolFonts&) = delete;

    /// The first face of a stack that is installed, or the one that the system takes for the first name. It lives as
    /// long as this object.
    const SymbolFace& Find(const std::vector<std::string>& stack, TextPath path);

private:
    FontName Choose(const std::vector<std::string>& stack);

    TZObjects::TXGraphicsEngine& engine;
    OnMissing onMissing;
    std::set<std::string> missing;
    std::map<std::pair<std::vector<std::string>, TextPath>, const SymbolFace*> stacks;
    std::map<std::pair<FontName, TextPath>, std::unique_ptr<SymbolFace>> faces;
};

} // namespace txmap
