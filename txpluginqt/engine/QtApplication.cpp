#include <txpluginqt/engine/QtApplication.h>

#include <atomic>
#include <clocale>
#include <cstdlib>
#include <mutex>
#include <optional>
#include <string>

#include <QByteArray>
#include <QDebug>
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QThread>

namespace txqt
{
namespace
{

// The flags are the Qt version that hosts' documents were made with.
constexpr int kApplicationFlags = 0x50701;
constexpr char kPlatformVariable[] = "QT_QPA_PLATFORM";

/// Names a platform that works without a display while an application object is made: Qt aborts the whole process when
/// it finds none. The host's own choice stands, and its environment is afterwards what it was.
class PlatformChoice
{
public:
    PlatformChoice() : chosen(!qEnvironmentVariableIsSet(kPlatformVariable))
    {
        if (!chosen)
            return;
        QByteArray platforms;
        if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
            platforms += "wayland;";
        if (qEnvironmentVariableIsSet("DISPLAY"))
            platforms += "xcb;";
        qputenv(kPlatformVariable, platforms + "offscreen");
    }
    ~PlatformChoice()
    {
        if (chosen)
            qunsetenv(kPlatformVariable);
    }
    PlatformChoice(const PlatformChoice&) = delete;
    PlatformChoice& operator=(const PlatformChoice&) = delete;

private:
    bool chosen;
};

/// Gives the host its locale back, which Qt's application objects replace by the environment's.
class LocaleScope
{
public:
    LocaleScope() : locale(std::setlocale(LC_ALL, nullptr)) {}
    ~LocaleScope() { std::setlocale(LC_ALL, locale.c_str()); }
    LocaleScope(const LocaleScope&) = delete;
    LocaleScope& operator=(const LocaleScope&) = delete;

private:
    std::string locale;
};

std::atomic<QtMessageHandler> hostHandler{nullptr};

/// Keeps what Qt has to say about the environment while an application object is made (no runtime folder, a platform
/// that is not there) off the host's log. What ends the process is still said.
class QuietScope
{
public:
    QuietScope() { hostHandler = qInstallMessageHandler(PassFatal); }
    ~QuietScope() { qInstallMessageHandler(hostHandler); }
    QuietScope(const QuietScope&) = delete;
    QuietScope& operator=(const QuietScope&) = delete;

private:
    static void PassFatal(QtMsgType type, const QMessageLogContext& context, const QString& message)
    {
        if (type != QtFatalMsg)
            return;
        qInstallMessageHandler(hostHandler);
        QMessageLogger(context.file, context.line, context.function).fatal("%s", qUtf8Printable(message));
    }
};

/// Makes Qt load its font engines now: those that a first text loads after an earlier application object has gone are
/// torn down too late at the end of the process, and crash it.
void LoadFonts() { QFontMetricsF(QFont()).height(); }

QGuiApplication* processApplication = nullptr;
QThread* processApplicationThread = nullptr;

void EndProcessApplication()
{
    // An application object may only be deleted on its own thread, and not after a host's own has taken its place: Qt
    // has one application at a time, and the first to go takes what both need.
    if (QThread::currentThread() == processApplicationThread && QCoreApplication::instance() == processApplication)
        delete processApplication;
}

bool MakeProcessApplication()
{
    const PlatformChoice platform;
    const LocaleScope locale;
    const QuietScope quiet;
    // Qt keeps a reference to it.
    static int argc = 0;
    processApplication = new QGuiApplication(argc, nullptr, kApplicationFlags);
    processApplicationThread = QThread::currentThread();
    LoadFonts();
    std::atexit(EndProcessApplication);
    return true;
}

} // namespace

void AnnounceEngine()
{
    if (QCoreApplication::instance())
        return;
    const PlatformChoice platform;
    const LocaleScope locale;
    static int argc = 1;
    static char name[] = "";
    static char* argv[] = {name, nullptr};
    std::optional<QGuiApplication> application;
    {
        const QuietScope quiet;
        application.emplace(argc, argv, kApplicationFlags);
        LoadFonts();
    }
    qDebug("graphics engine create!");
}

void EnsureApplication()
{
    // An application object is there before it is complete.
    static std::mutex mutex;
    const std::lock_guard<std::mutex> guard(mutex);
    if (QCoreApplication::instance())
        return;
    static const bool made = MakeProcessApplication();
    Q_UNUSED(made)
}

} // namespace txqt
