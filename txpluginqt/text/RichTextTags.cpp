#include <txpluginqt/text/RichTextTags.h>

#include <QLatin1String>
#include <QString>

namespace txqt
{
namespace
{

struct Tag
{
    QLatin1String label;
    QLatin1String html;
};

constexpr Tag MakeTag(const char* label, int labelLength, const char* html, int htmlLength)
{
    return {QLatin1String(label, labelLength), QLatin1String(html, htmlLength)};
}

template <std::size_t L, std::size_t H>
constexpr Tag MakeTag(const char (&label)[L], const char (&html)[H])
{
    return MakeTag(label, int(L) - 1, html, int(H) - 1);
}

constexpr Tag kTags[] = {
    MakeTag("</ACP>", "</span>"),
    MakeTag("</BOL>", "</span>"),
    MakeTag("</ITA>", "</span>"),
    MakeTag("</SCP>", "</span>"),
    MakeTag("</UND>", "</u>"),
    MakeTag("</acp>", "</span>"),
    MakeTag("</bol>", "</span>"),
    MakeTag("</ita>", "</span>"),
    MakeTag("</scp>", "</span>"),
    MakeTag("</und>", "</u>"),
    MakeTag("<ACP>", "<span style=\"text-transform:uppercase\">"),
    MakeTag("<BOL>", "<span style=\"font-weight:700\">"),
    MakeTag("<ITA>", "<span style=\"font-style:italic\">"),
    MakeTag("<SCP>", "<span style=\"text-transform:lowercase\">"),
    MakeTag("<UND>", "<u>"),
    MakeTag("<acp>", "<span style=\"text-transform:uppercase\">"),
    MakeTag("<bol>", "<span style=\"font-weight:700\">"),
    MakeTag("<ita>", "<span style=\"font-style:italic\">"),
    MakeTag("<scp>", "<span style=\"text-transform:lowercase\">"),
    MakeTag("<und>", "<u>"),
};

/// The tag that a text goes on with; null for none.
const Tag* TagAt(const QString& text, int position)
{
    for (const Tag& tag : kTags)
        if (text.midRef(position, tag.label.size()) == tag.label)
            return &tag;
    return nullptr;
}

} // namespace

void ConvertRichTextTags(QString& text)
{
    // Nearly every label is plain, and must not pay for the tags.
    int next = text.indexOf(QLatin1Char('<'));
    if (next < 0)
        return;
    QString converted;
    converted.reserve(text.size() * 2);
    int done = 0;
    for (; next >= 0; next = text.indexOf(QLatin1Char('<'), next))
    {
        const Tag* const tag = TagAt(text, next);
        if (!tag)
        {
            ++next;
            continue;
        }
        converted.append(text.midRef(done, next - done)).append(tag->html);
        next += tag->label.size();
        done = next;
    }
    text = converted.append(text.midRef(done));
}

} // namespace txqt
