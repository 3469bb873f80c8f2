#include "ResourceTest.h"

#include <QtGlobal>

using namespace TZObjects;

namespace
{

QStringList& Messages()
{
    static QStringList messages;
    return messages;
}

void Record(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message)
{
    Messages().append(message);
}

} // namespace

ResourceTest::ResourceTest()
{
    Messages().clear();
    qInstallMessageHandler(Record);
}

ResourceTest::~ResourceTest()
{
    qInstallMessageHandler(nullptr);
    // The destructor comes after the members of the derived fixtures, so that their destruction is observed as well.
    EXPECT_EQ(TakeMessages().join("\n").toStdString(), "") << "messages were printed through Qt";
}

QStringList ResourceTest::TakeMessages()
{
    QStringList taken;
    taken.swap(Messages());
    return taken;
}

QColor SameChannels(const TXColor& color) { return QColor(color.getR(), color.getG(), color.getB(), color.getA()); }
