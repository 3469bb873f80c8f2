// One process, one sequence: load_sequence NAME PLUGIN. Exit code 0 when everything was as expected up to the process's
// end, destructors of statics included.
#include <dlfcn.h>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <thread>

#include <QApplication>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QWidget>

#include <tests/support/ChildProcess.h>
#include <txgraphics/txgraphics.h>

using namespace TZObjects;

namespace
{

const char* plugin = nullptr;
Expectations expectations;

void Expect(bool condition, const char* what) { expectations.Expect(condition, what); }

TXGraphicsEngineManager* Manager() { return TXGraphicsEngineManager::instance(""); }

TXRefPtr<TXGraphicsEngine> Load()
{
    TXString error;
    const TXRefPtr<TXGraphicsEngine> engine = Manager()->LoadPlugin(plugin, &error);
    Expect(bool(engine), "an engine");
    if (!engine)
        std::cerr << error.toUTF8() << std::endl;
    return engine;
}

/// A surface, shapes on it, and text through its painter, which brings Qt's font engines up.
TXRefPtr<TXGraphics> Draw(TXGraphicsEngine& engine)
{
    TXRefPtr<TXGraphics> surface(engine.NewGraphics());
    Expect(surface->CreateCompatibleGraphics(120, 40), "a target");
    surface->ClearWithColor(TXColor::WHITE_);
    Expect(surface->Rectangle(2.0, 2.0, 60.0, 30.0), "a rectangle");
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        static_cast<QPainter*>(surface->GetInteralObject())->drawText(5, 25, "Ägypten");
    const auto* const pixels = static_cast<const QImage*>(surface->GetImage()->GetInternalObject());
    Expect(pixels->pixel(2, 15) != 0xffffffffu, "ink");
    return surface;
}

int& HostArgc()
{
    static int argc = 1;
    return argc;
}

char** HostArgv()
{
    static char name[] = "host";
    static char* argv[] = {name, nullptr};
    return argv;
}

void LoadOnly() { Load(); }

void LoadAndDraw() { Draw(*Load()); }

/// Draws and measures a label when the main thread's own objects are gone already.
struct LabelAtTheEnd
{
    ~LabelAtTheEnd()
    {
        for (int i = 0; i < 3; ++i)
        {
            double width = 0.0;
            double height = 0.0;
            Expect(surface->GetFont()->GetTextExtent(L"Late", width, height, true), "a measure");
            Expect(surface->DrawOutlineString(5.0, 5.0, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft, L"Late",
                                              TXColor::RED_, 0.0, 0.0, 1.0),
                   "a label");
        }
        if (expectations.ExitCode() != 0)
            std::_Exit(1);
    }

    TXRefPtr<TXGraphics> surface;
};

void LabelInStaticDestructor()
{
    static QGuiApplication application(HostArgc(), HostArgv());
    const TXRefPtr<TXGraphics> surface = Draw(*Load());
    surface->DrawOutlineString(5.0, 5.0, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft, L"Early", TXColor::RED_,
                               0.0, 0.0, 1.0);
    // Destroyed before the application and Qt's own statics, but after what belongs to the thread.
    static LabelAtTheEnd label;
    label.surface = surface;
}

void KeepSurfaceToTheEnd()
{
    static TXRefPtr<TXGraphics> surface;
    surface = Draw(*Load());
}

void LoadUnloadLoad()
{
    Draw(*Load());
    Manager()->Unload();
    Draw(*Load());
}

void UnloadWithLiveSurface()
{
    const TXRefPtr<TXGraphics> surface = Draw(*Load());
    Manager()->Unload();
    Expect(surface->Line(0.0, 0.0, 50.0, 30.0), "a line after the unload");
}

void HostApplicationBefore()
{
    QGuiApplication application(HostArgc(), HostArgv());
    const TXRefPtr<TXGraphicsEngine> engine = Load();
    Expect(QCoreApplication::instance() == &application, "the host's application");
    Draw(*engine);
}

void HostApplicationDestroyedFirst()
{
    auto application = std::make_unique<QGuiApplication>(HostArgc(), HostArgv());
    const TXRefPtr<TXGraphics> surface = Draw(*Load());
    application.reset();
}

/// The entry alone: no engine has been made when the host makes its application.
void HostApplicationAfterLoading()
{
    void* const library = dlopen(plugin, RTLD_NOW);
    Expect(library != nullptr, "a loadable library");
    static QGuiApplication application(HostArgc(), HostArgv());
    Draw(*Load());
    Expect(QCoreApplication::instance() == &application, "the host's application");
}

void ShowAWidget()
{
    QWidget widget;
    widget.resize(60, 40);
    widget.show();
    QCoreApplication::processEvents();
    widget.close();
}

/// The wrong order: two application objects are a mistake by Qt's rules, but must not end the process.
void HostApplicationAfterTheEngine()
{
    const TXRefPtr<TXGraphicsEngine> engine = Load();
    Draw(*engine);
    QApplication application(HostArgc(), HostArgv());
    Expect(QCoreApplication::instance() == &application, "the host's application");
    ShowAWidget();
    Draw(*engine);
}

void LastingHostApplicationAfterTheEngine()
{
    const TXRefPtr<TXGraphicsEngine> engine = Load();
    static QApplication application(HostArgc(), HostArgv());
    ShowAWidget();
    Draw(*engine);
}

void LeakedHostApplicationAfterTheEngine()
{
    Draw(*Load());
    static QApplication* const application = new QApplication(HostArgc(), HostArgv());
    Expect(QCoreApplication::instance() == application, "the host's application");
    ShowAWidget();
    Draw(*Load());
}

void HostCoreApplicationOnly()
{
    QCoreApplication application(HostArgc(), HostArgv());
    Draw(*Load());
    Expect(QCoreApplication::instance() == &application, "the host's application");
}

void EngineOnThread()
{
    std::thread([] { Draw(*Load()); }).join();
}

void TwoEngines()
{
    const TXRefPtr<TXGraphicsEngine> first = Load();
    const QCoreApplication* const application = QCoreApplication::instance();
    Expect(application != nullptr, "an application");
    const TXRefPtr<TXGraphicsEngine> second = Load();
    Expect(first != second, "an engine for each call of the entry");
    Expect(QCoreApplication::instance() == application, "one application for both");
    Draw(*first);
    Draw(*second);
}

void ApplicationOutlivesEngine()
{
    Load();
    Manager()->Unload();
    Expect(QCoreApplication::instance() != nullptr, "an application without an engine");
}

/// Speaks up when the application object that owns it ends.
class Probe final : public QObject
{
public:
    using QObject::QObject;
    ~Probe() override { std::cerr << "application ended" << std::endl; }
};

void ApplicationEndsWithTheProcess()
{
    Draw(*Load());
    new Probe(QCoreApplication::instance());
}

void NothingOfTheHostChanges()
{
    std::setlocale(LC_ALL, "C");
    const bool platformWasSet = std::getenv("QT_QPA_PLATFORM") != nullptr;
    Draw(*Load());
    Expect(std::strcmp(std::setlocale(LC_ALL, nullptr), "C") == 0, "the host's locale");
    Expect((std::getenv("QT_QPA_PLATFORM") != nullptr) == platformWasSet, "the host's environment");
}

int notices = 0;
int otherMessages = 0;

void CountMessages(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    const bool notice = type == QtDebugMsg && message == QLatin1String("graphics engine create!");
    (notice ? notices : otherMessages) += 1;
}

void NoticeIsADebugMessage()
{
    qInstallMessageHandler(CountMessages);
    Draw(*Load());
    Expect(notices == 1, "the notice, through Qt's debug log");
    Expect(otherMessages == 0, "no other message");
    Expect(qInstallMessageHandler(nullptr) == CountMessages, "the host's own handler");
}

void EntryGivesOneReference()
{
    void* const library = dlopen(plugin, RTLD_NOW);
    auto* const symbol = static_cast<TXRefPtr<TXPlugin> (**)()>(dlsym(library, "GetTZPlugIn"));
    Expect(symbol && *symbol, "the entry");
    TXRefPtr<TXPlugin> made = (*symbol)();
    auto* const engine = dynamic_cast<TXGraphicsEngine*>(made.get());
    Expect(engine && engine->GetName() == TXString("QT") && engine->GetVersion() == TXString("0.1") &&
               engine->GetDescription().isEmpty(),
           "the engine QT 0.1");
    Expect(engine->IsDll(), "an engine from a library");
    engine->AddRef();
    made = nullptr;
    Expect(engine->Release(), "no reference but the returned one");
}

const std::map<std::string, void (*)()> kSequences = {
    {"load-only", LoadOnly},
    {"load-and-draw", LoadAndDraw},
    {"keep-surface-to-the-end", KeepSurfaceToTheEnd},
    {"load-unload-load", LoadUnloadLoad},
    {"unload-with-live-surface", UnloadWithLiveSurface},
    {"label-in-static-destructor", LabelInStaticDestructor},
    {"host-application-before", HostApplicationBefore},
    {"host-application-destroyed-first", HostApplicationDestroyedFirst},
    {"host-application-after-loading", HostApplicationAfterLoading},
    {"host-application-after-the-engine", HostApplicationAfterTheEngine},
    {"lasting-host-application-after-the-engine", LastingHostApplicationAfterTheEngine},
    {"leaked-host-application-after-the-engine", LeakedHostApplicationAfterTheEngine},
    {"host-core-application-only", HostCoreApplicationOnly},
    {"engine-on-thread", EngineOnThread},
    {"two-engines", TwoEngines},
    {"application-outlives-engine", ApplicationOutlivesEngine},
    {"application-ends-with-the-process", ApplicationEndsWithTheProcess},
    {"nothing-of-the-host-changes", NothingOfTheHostChanges},
    {"notice-is-a-debug-message", NoticeIsADebugMessage},
    {"entry-gives-one-reference", EntryGivesOneReference},
};

} // namespace

int main(int argc, char** argv)
{
    const auto sequence = argc == 3 ? kSequences.find(argv[1]) : kSequences.end();
    if (sequence == kSequences.end())
    {
        std::cerr << "usage: load_sequence NAME PLUGIN" << std::endl;
        return 2;
    }
    plugin = argv[2];
    sequence->second();
    return expectations.ExitCode();
}
