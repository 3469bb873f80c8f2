#pragma once

#include <array>
#include <utility>

#include <QString>

using TagAndHtml = std::pair<const char*, const char*>;

/// Every spelling of a label tag, and what it stands for in HTML.
constexpr std::array<TagAndHtml, 20> kTagsAndHtml = {{
    {"<BOL>", "<span style=\"font-weight:700\">"},
    {"<bol>", "<span style=\"font-weight:700\">"},
    {"</BOL>", "</span>"},
    {"</bol>", "</span>"},
    {"<ITA>", "<span style=\"font-style:italic\">"},
    {"<ita>", "<span style=\"font-style:italic\">"},
    {"</ITA>", "</span>"},
    {"</ita>", "</span>"},
    {"<UND>", "<u>"},
    {"<und>", "<u>"},
    {"</UND>", "</u>"},
    {"</und>", "</u>"},
    {"<ACP>", "<span style=\"text-transform:uppercase\">"},
    {"<acp>", "<span style=\"text-transform:uppercase\">"},
    {"</ACP>", "</span>"},
    {"</acp>", "</span>"},
    {"<SCP>", "<span style=\"text-transform:lowercase\">"},
    {"<scp>", "<span style=\"text-transform:lowercase\">"},
    {"</SCP>", "</span>"},
    {"</scp>", "</span>"},
}};

/// The label as HTML, made by walking it once.
QString ConvertedNaively(const QString& label);
