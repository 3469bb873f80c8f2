// label_without_gui_application SEQUENCE: labels and measuring in a host without a QGuiApplication.
#include <cstring>
#include <iostream>
#include <memory>

#include <QGuiApplication>
#include <QImage>

#include <tests/support/TestEngine.h>

#include "Label.h"
#include "Measures.h"
#include <tests/support/ChildProcess.h>

using namespace TZObjects;

namespace
{

Expectations expectations;

TXRefPtr<TXGraphics> NewSurface()
{
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
    expectations.Expect(surface->CreateCompatibleGraphics(150, 100), "a target");
    return surface;
}

bool DrawFontMarker(TXGraphics& surface)
{
    return surface.FontMarker(40.0, 30.0, 20.0, 20.0, 0.0, L"DejaVu Serif", 'R');
}

void ExpectNoText(TXGraphics& surface, const TXFont& font)
{
    surface.ClearWithColor(TXColor::WHITE_);
    const auto& pixels = *static_cast<const QImage*>(surface.GetImage()->GetInternalObject());
    const QImage before = pixels.copy();
    for (const wchar_t* const text : {L"", L"Main\nStreet", L"<BOL>Main</BOL>\nStreet"})
    {
        Label label;
        label.text = text;
        for (const Entry entry : kAllEntries)
            expectations.Expect(!Draw(surface, entry, label), std::string("false from ") + NameOf(entry));

        expectations.Expect(!DrawFontMarker(surface), "false from a font marker");

        const Measures measures(font, TXString(text), true);
        expectations.Expect(!measures.lineAnswers && !measures.lineAnswersInt, "no extent");
        expectations.Expect(!measures.blockAnswers && !measures.blockAnswersInt, "no extent of several lines");
        expectations.Expect(measures.lineWidth == -7.0 && measures.lineHeight == -7.0 && measures.lineWidthInt == -7 &&
                                measures.lineHeightInt == -7,
                            "outputs of the extent untouched");
        expectations.Expect(measures.blockWidth == 0.0 && measures.blockHeight == 0.0 && measures.blockWidthInt == 0 &&
                                measures.blockHeightInt == 0,
                            "zeros for several lines");
        expectations.Expect(measures.height == -7.0 && measures.ascent == -7.0 && measures.descent == -7.0 &&
                                measures.heightInt == -7 && measures.ascentInt == -7 && measures.descentInt == -7,
                            "metrics untouched");
        expectations.Expect(measures.charWidth == 0.0, "no width of a character");
    }
    expectations.Expect(pixels == before, "no ink");
    expectations.Expect(surface.Line(2.0, 2.0, 90.0, 60.0) && pixels != before, "lines all the same");
}

void CoreApplicationOnly(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const TXRefPtr<TXGraphics> surface = NewSurface();
    const TXRefPtr<TXFont> font = MakeFont({});
    surface->SelectFont(font);
    ExpectNoText(*surface, *font);
}

void GuiApplicationEnded(int argc, char** argv)
{
    auto application = std::make_unique<QGuiApplication>(argc, argv);
    const TXRefPtr<TXGraphics> surface = NewSurface();
    const TXRefPtr<TXFont> font = MakeFont({});
    surface->SelectFont(font);
    for (const Entry entry : kAllEntries)
        expectations.Expect(Draw(*surface, entry, {}), std::string("a label by ") + NameOf(entry));
    expectations.Expect(DrawFontMarker(*surface), "a font marker");
    expectations.Expect(Measures(*font, TXString(L"Main"), true).lineAnswers, "an extent");
    application.reset();
    ExpectNoText(*surface, *font);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc == 2 && std::strcmp(argv[1], "core-application-only") == 0)
        CoreApplicationOnly(argc, argv);
    else if (argc == 2 && std::strcmp(argv[1], "gui-application-ended") == 0)
        GuiApplicationEnded(argc, argv);
    else
        return 2;
    return expectations.ExitCode();
}
