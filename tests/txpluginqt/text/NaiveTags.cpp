#include "NaiveTags.h"

#include <algorithm>

QString ConvertedNaively(const QString& label)
{
    QString html;
    for (int at = 0; at < label.size();)
    {
        const auto tag = std::find_if(kTagsAndHtml.begin(), kTagsAndHtml.end(),
                                      [&](const TagAndHtml& candidate)
                                      { return label.midRef(at).startsWith(QString::fromLatin1(candidate.first)); });
        if (tag == kTagsAndHtml.end())
            html += label.at(at++);
        else
        {
            html += QString::fromLatin1(tag->second);
            at += QString::fromLatin1(tag->first).size();
        }
    }
    return html;
}
