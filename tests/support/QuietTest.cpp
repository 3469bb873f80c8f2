#include "QuietTest.h"

#include <utility>

namespace
{

QStringList& Messages()
{
    static QStringList messages;
    return messages;
}

void Record(QtMsgType, const QMessageLogContext&, const QString& message) { Messages().append(message); }

} // namespace

QuietTest::QuietTest()
{
    // Loading the plugin is tested elsewhere.
    TestEngine();
    Messages().clear();
    qInstallMessageHandler(Record);
}

QuietTest::~QuietTest()
{
    qInstallMessageHandler(nullptr);
    // The destructor comes after the members of the derived fixtures, so that their destruction is observed as well.
    EXPECT_EQ(TakeMessages().join("\n").toStdString(), "") << "printed through Qt";
}

QStringList QuietTest::TakeMessages() { return std::exchange(Messages(), {}); }
