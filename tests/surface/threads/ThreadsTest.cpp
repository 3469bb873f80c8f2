#include "ThreadsTest.h"

#include <mutex>
#include <utility>

#include <QStringList>

namespace
{

class Messages
{
public:
    static Messages& All()
    {
        static Messages messages;
        return messages;
    }

    void Add(const QString& message)
    {
        const std::lock_guard<std::mutex> guard(mutex);
        messages.append(message);
    }

    QStringList Take()
    {
        const std::lock_guard<std::mutex> guard(mutex);
        return std::exchange(messages, {});
    }

private:
    std::mutex mutex;
    QStringList messages;
};

void Record(QtMsgType, const QMessageLogContext&, const QString& message) { Messages::All().Add(message); }

} // namespace

ThreadsTest::ThreadsTest()
{
    TestEngine();
    TZObjects::TXGraphicsEngineManager::instance("")->EnableCairoDrawing(true);
    Messages::All().Take();
    qInstallMessageHandler(Record);
}

ThreadsTest::~ThreadsTest()
{
    qInstallMessageHandler(nullptr);
    // Qt says this once for each thread that it has not started itself when fonts have taken some megabytes there.
    QStringList messages = Messages::All().Take();
    messages.removeAll(
        QStringLiteral("QObject::startTimer: Timers can only be used with threads started with QThread"));
    EXPECT_EQ(messages.join("\n").toStdString(), "") << "printed through Qt";
}
