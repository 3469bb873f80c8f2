// draw_hostile_labels FOLDER [open]: draws and measures labels that name files of the folder. Whether one was opened
// is for an observer of the process to see; with "open" one is opened indeed, so that the observer can be tried.
#include <QFile>
#include <QGuiApplication>

#include <tests/support/TestEngine.h>

#include "HostileLabels.h"
#include "Label.h"
#include "Measures.h"
#include <tests/support/ChildProcess.h>

using namespace TZObjects;

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    if (argc < 2)
        return 2;
    const std::string folder = argv[1];
    if (argc > 2)
        return QFile(QString::fromStdString(folder + "/stranger.png")).open(QIODevice::ReadOnly) ? 0 : 2;

    Expectations expectations;
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
    expectations.Expect(surface->CreateCompatibleGraphics(100, 100), "a target");
    const TXRefPtr<TXFont> font = MakeFont({});
    surface->SelectFont(font);
    for (const std::wstring& text : HostileLabels(folder))
    {
        Label label;
        label.text = text;
        for (const Entry entry : kAllEntries)
            expectations.Expect(Draw(*surface, entry, label), "true");
        const Measures measures(*font, TXString(text), true);
        expectations.Expect(measures.lineAnswers && measures.blockAnswers, "measures");
    }
    return expectations.ExitCode();
}
