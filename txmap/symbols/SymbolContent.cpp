#include <txmap/symbols/SymbolContent.h>

#include <algorithm>
#include <limits>

#include <txmap/sources/Sprites.h>
#include <txmap/style/operators/Utf8.h>
#include <txmap/symbols/SymbolAnchor.h>
#include <txmap/symbols/text/SymbolFonts.h>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

constexpr double kEm = 24.0;
// How large characters are that stand for icons, in logical pixels.
constexpr double kMarkSize = 24.0;

TextJustify JustifyFor(const std::string& justify, const std::string& anchor)
{
    const std::string side = justify == "auto" ? anchor : justify;
    if (side.find("left") != std::string::npos)
        return TextJustify::Left;
    if (side.find("right") != std::string::npos)
        return TextJustify::Right;
    return TextJustify::Center;
}

void Append(std::string& key, double number) { key.append(reinterpret_cast<const char*>(&number), sizeof number); }

void Append(std::string& key, const std::string& text)
{
    Append(key, static_cast<double>(text.size()));
    key += text;
}

void Append(std::string& key, const std::vector<std::string>& texts)
{
    Append(key, static_cast<double>(texts.size()));
    for (const std::string& text : texts)
        Append(key, text);
}

/// Everything that the layout of a text depends on.
std::string KeyOf(const std::vector<TextSection>& sections, const TextStyle& style)
{
    std::string key;
    Append(key, style.fontStack);
    for (const double number :
         {style.size, style.letterSpacing, style.lineHeight, style.maxWidth, 1.0 * static_cast<int>(style.justify),
          1.0 * static_cast<int>(style.mode), 1.0 * static_cast<int>(style.engine)})
        Append(key, number);
    for (const TextSection& section : sections)
    {
        Append(key, section.text);
        Append(key, section.image);
        Append(key, section.fontStack);
        for (const double number : {section.scale, section.imageWidth, section.imageHeight,
                                    1.0 * static_cast<int>(section.align), section.color ? 1.0 : 0.0})
            Append(key, number);
        if (section.color)
            for (const double part :
                 {section.color->red, section.color->green, section.color->blue, section.color->alpha})
                Append(key, part);
    }
    return key;
}

SectionAlign AlignOf(const std::optional<std::string>& align)
{
    if (align == "top")
        return SectionAlign::Top;
    return align == "center" ? SectionAlign::Center : SectionAlign::Bottom;
}

} // namespace

SymbolContents::SymbolContents(const SymbolProperties& properties, const Sprites& sprites, SymbolFonts& fonts,
                               double scale)
    : properties(properties), sprites(sprites), fonts(fonts), scale(scale)
{
}

Formatted SymbolContents::TextOf(const EvaluationContext& context) const
{
    Formatted text = properties.textField.At(context);
    const std::string transform = properties.textTransform.At(context);
    if (transform == "uppercase" || transform == "lowercase")
        for (FormattedSection& section : text.sections)
            section.text = transform == "uppercase" ? Upcase(section.text) : Downcase(section.text);
    return text;
}

std::vector<TextSection> SymbolContents::Sections(const Formatted& text) const
{
    std::vector<TextSection> sections;
    for (const FormattedSection& part : text.sections)
    {
        TextSection section;
        section.text = part.text;
        section.scale = part.scale.value_or(1.0);
        if (part.fontStack)
            section.fontStack = Split(*part.fontStack, ",");
        section.color = part.textColor;
        section.align = AlignOf(part.verticalAlign);
        if (part.image)
        {
            const SpritePicture* const picture = sprites.Find(part.image->name);
            if (!picture)
                continue;
            section.image = part.image->name;
            section.imageWidth = picture->Width() * scale;
            section.imageHeight = picture->Height() * scale;
        }
        if (!section.text.empty() || !section.image.empty())
            sections.push_back(std::move(section));
    }
    return sections;
}

std::optional<SymbolContent> SymbolContents::Make(const EvaluationContext& context)
{
    SymbolContent content;
    AddText(context, content);
    AddIcon(context, content);
    if (content.places.empty() && !content.lineText && !content.icon)
        return std::nullopt;
    return content;
}

void SymbolContents::AddText(const EvaluationContext& context, SymbolContent& content)
{
    const Formatted text = TextOf(context);
    const double size = properties.textSize.At(context);
    content.anchorSize = size;
    if (properties.textSizeOfAnchors)
        Take(properties.textSizeOfAnchors->EvaluateOrDefault(context), content.anchorSize);
    const std::vector<TextSection> sections = Sections(text);
    if (sections.empty() || !(size > 0.0))
        return;
    content.text = text.ToString();
    content.textRotate = properties.textRotate.At(context);
    TextStyle style;
    style.fontStack = properties.textFont.At(context);
    style.size = size * scale;
    style.letterSpacing = properties.textLetterSpacing.At(context);
    style.lineHeight = properties.textLineHeight;
    style.engine = properties.textEngine;
    // Only at points, lines of a text are broken where they are too long.
    style.maxWidth = properties.stand == SymbolStand::Point ? properties.textMaxWidth.At(context)
                                                            : std::numeric_limits<double>::infinity();
    if (!properties.TextFollowsLine())
        AddPlaces(context, sections, style, content);
    else
    {
        const std::array<double, 2> offset = properties.textOffset.At(context);
        content.lineShift = offset[0] * style.size;
        content.lineDrop = offset[1] * style.size;
        const LineText& lineText = LineTextOf(sections, style);
        if (lineText.IsEmpty())
            return;
        content.lineText = &lineText;
        content.anchorLength = lineText.length;
        const auto& modes = properties.textWritingMode;
        if (std::find(modes.begin(), modes.end(), "vertical") != modes.end() && CanBeVertical(sections))
        {
            style.mode = WritingMode::Vertical;
            content.columnText = &LineTextOf(sections, style);
        }
    }
    for (const TextPlace& place : content.places)
        content.anchorLength = std::max(content.anchorLength, place.block->width);
    content.anchorLength *= content.anchorSize / style.size;
}

VariableAnchorOffsets SymbolContents::VariableAnchors(const EvaluationContext& context) const
{
    VariableAnchorOffsets anchors = properties.textVariableAnchorOffset.At(context);
    if (!anchors.entries.empty())
        return anchors;
    const double radius = properties.textRadialOffset.At(context);
    const std::array<double, 2> offset = properties.textOffset.At(context);
    for (const std::string& anchor : properties.textVariableAnchor)
    {
        const TXPoint moved = radius != 0.0 ? RadialOffset(anchor, radius) : OutwardOffset(anchor, offset);
        anchors.entries.push_back({anchor, {moved.x, moved.y}});
    }
    return anchors;
}

void SymbolContents::AddPlaces(const EvaluationContext& context, const std::vector<TextSection>& sections,
                               TextStyle style, SymbolContent& content)
{
    const std::string justify = properties.textJustify.At(context);
    std::vector<WritingMode> modes;
    for (const std::string& mode : properties.textWritingMode)
        modes.push_back(mode == "vertical" ? WritingMode::Vertical : WritingMode::Horizontal);
    if (properties.textIsVertical)
        modes.assign(1, WritingMode::Vertical);
    else if (!CanBeVertical(sections) || properties.stand != SymbolStand::Point)
        modes.clear();
    if (modes.empty())
        modes.push_back(WritingMode::Horizontal);

    const VariableAnchorOffsets variable = VariableAnchors(context);
    const std::string fixedAnchor = properties.textAnchor.At(context);
    const bool isOne = variable.entries.empty();
    for (const WritingMode mode : modes)
    {
        style.mode = mode;
        const std::size_t first = content.places.size();
        if (isOne)
        {
            const double radius = properties.textRadialOffset.At(context);
            const std::array<double, 2> given = properties.textOffset.At(context);
            const TXPoint offset = radius != 0.0 ? RadialOffset(fixedAnchor, radius) : TXPoint(given[0], given[1]);
            style.justify = JustifyFor(justify, fixedAnchor);
            AddPlace(BlockOf(sections, style), fixedAnchor, offset, true, content);
        }
        for (const VariableAnchorOffsets::Entry& entry : variable.entries)
        {
            style.justify = JustifyFor(justify, entry.anchor);
            AddPlace(BlockOf(sections, style), entry.anchor, {entry.offset[0], entry.offset[1]}, false, content);
        }
        for (std::size_t i = first; i < content.places.size(); ++i)
            content.places[i].isColumn = mode == WritingMode::Vertical;
    }
    content.iconMovesWithText = !isOne;
}

void SymbolContents::AddPlace(const TextBlock& block, const std::string& anchor, const TXPoint& offset, bool isOne,
                              SymbolContent& content) const
{
    if (block.IsEmpty())
        return;
    const AnchorAlignment alignment = AlignmentOf(anchor);
    const double padding = properties.textPadding * scale;
    // Where a text may stand on several sides, its padding keeps it away from the point.
    const double around = isOne ? 0.0 : 2.0 * padding;
    const TXPoint centre((0.5 - alignment.left) * (block.width + around) + offset.x * block.size,
                         (0.5 - alignment.above) * (block.height + around) + offset.y * block.size);
    const double halfWidth = block.width / 2.0 + padding;
    const double halfHeight = block.height / 2.0 + padding;
    content.places.push_back(
        {&block,
         centre,
         {centre.x - halfWidth, centre.x + halfWidth, centre.y - halfHeight, centre.y + halfHeight},
         false});
}

void SymbolContents::FitIcons(const SpritePicture& picture, double size, const EvaluationContext& context,
                              SymbolContent& content) const
{
    IconTextFit fit;
    fit.width = properties.iconFitsWidth;
    fit.height = properties.iconFitsHeight;
    fit.padding = properties.iconFitPadding;
    fit.offset = properties.iconOffset.At(context);
    fit.scale = scale;
    for (const TextPlace& place : content.places)
    {
        std::optional<IconShape>& icon = place.isColumn ? content.columnIcon : content.icon;
        if (icon)
            continue;
        const double x = content.iconMovesWithText ? 0.0 : place.centre.x;
        const double y = content.iconMovesWithText ? 0.0 : place.centre.y;
        fit.text = {x - place.block->width / 2.0, x + place.block->width / 2.0, y - place.block->height / 2.0,
                    y + place.block->height / 2.0};
        icon = FitIcon(picture, fit);
        for (std::vector<IconStop>* const stops : {&icon->across, &icon->down})
            for (IconStop& stop : *stops)
                stop.place *= size;
    }
    if (!content.icon)
        content.icon = content.columnIcon;
}

void SymbolContents::AddIcon(const EvaluationContext& context, SymbolContent& content) const
{
    const std::string name = properties.iconImage.At(context);
    const SpritePicture* const picture = name.empty() ? nullptr : sprites.Find(name);
    const double size = picture || properties.hasMark ? properties.iconSize.At(context) : 0.0;
    if (!(size > 0.0))
        return;
    content.iconScale = size * scale;
    // Icons count as if they were texts of this many pixels a letter.
    content.anchorLength =
        std::max(content.anchorLength, (picture ? picture->Width() : kMarkSize) * content.anchorSize / kEm);
    content.iconRotate = properties.iconRotate.At(context);
    content.iconPadding = properties.iconPadding.At(context);
    const std::string alignment = properties.iconRotationAlignment.At(context);
    content.iconFollowsLine = properties.stand != SymbolStand::Point && alignment != "viewport";
    content.iconTurnsWithMap = properties.stand == SymbolStand::Point && alignment == "map";
    if (picture && properties.FitsIconToText() && !content.places.empty())
    {
        FitIcons(*picture, size, context, content);
        return;
    }
    content.iconMovesWithText = false;
    const std::string anchor = properties.iconAnchor.At(context);
    const std::array<double, 2> offset = properties.iconOffset.At(context);
    content.icon = picture ? ShapeIcon(*picture, anchor, offset, content.iconScale)
                           : ShapeMark(kMarkSize, anchor, offset, content.iconScale);
}

const TextBlock& SymbolContents::BlockOf(const std::vector<TextSection>& sections, const TextStyle& style)
{
    std::unique_ptr<TextBlock>& block = blocks[KeyOf(sections, style)];
    if (!block)
        block = std::make_unique<TextBlock>(LayOutText(sections, style, fonts));
    return *block;
}

const LineText& SymbolContents::LineTextOf(const std::vector<TextSection>& sections, const TextStyle& style)
{
    std::unique_ptr<LineText>& text = lineTexts[KeyOf(sections, style)];
    if (!text)
        text = std::make_unique<LineText>(MakeLineText(sections, style, fonts));
    return *text;
}

} // namespace txmap
