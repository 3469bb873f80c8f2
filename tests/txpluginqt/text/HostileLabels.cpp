#include "HostileLabels.h"

std::vector<std::wstring> HostileLabels(const std::string& folder)
{
    const std::vector<std::wstring> shapes = {
        L"<img src=\"%\">",
        L"<BOL>x</BOL><img src='%' width=5 height=5>",
        L"<BOL><img src=%></BOL>\n<img src=%>",
        L"<link rel=\"stylesheet\" type=\"text/css\" href=\"%\">x",
        L"<link rel=stylesheet href='%'><BOL>x</BOL>",
        L"<style>@import url(\"%\");</style><p>x",
        L"<style type=\"text/css\">@import '%';</style><p>x",
        L"<body background=\"%\">x",
        L"<table background=\"%\"><tr background='%'><td background='%'>x</table>",
        L"<span style=\"background-image: url(%)\">x</span>",
        L"<p style=\"background: url('%') repeat-x\">x</p>",
        L"<style>p { background-image: url(%) } li { list-style-image: url(%) }</style><p>x<ul><li>x</ul>",
        L"<ul style=\"list-style-image: url(%)\"><li style=\"list-style: url('%')\">x</ul>",
        L"<div style=\"border-image: url(%); cursor: url(%)\">x</div>",
        L"<b>x</b><object data='%'></object><embed src='%'><iframe src='%'></iframe><script src='%'></script>",
        L"<b>x</b><video src='%' poster='%'></video><input type=image src='%'><a href='%'>y</a>",
        L"<base href=\"%\"><img src=\"stranger.png\">",
        L"<style>@font-face { src: url(%) }</style><b>x</b>",
        L"<b>x</b>\n<img src=\"%\">\n<BOL>y</BOL>",
    };
    const std::wstring wideFolder(folder.begin(), folder.end());
    std::vector<std::wstring> labels;
    for (const std::wstring& place : {wideFolder + L"/", L"file://" + wideFolder + L"/", std::wstring()})
        for (const wchar_t* const name : {L"stranger.png", L"stranger.css", L"stranger.fifo"})
            for (std::wstring label : shapes)
            {
                for (std::size_t at = label.find(L'%'); at != std::wstring::npos; at = label.find(L'%', at))
                    label.replace(at, 1, place + name);
                labels.push_back(label);
            }
    return labels;
}
