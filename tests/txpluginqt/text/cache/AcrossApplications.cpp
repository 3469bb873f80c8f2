// labels_across_applications: what is kept of labels when a host ends its application object and makes another.
#include <memory>

#include <QGuiApplication>

#include <tests/support/ChildProcess.h>

#include "CacheSize.h"
#include "NumbersDetail.h"
#include <tests/support/PixelFont.h>

using namespace txqt;

namespace
{

struct Value
{
    static std::size_t Bytes() { return 8; }
};

bool Hits()
{
    bool made = false;
    const QFont font = PixelFont(20);
    LabelCache::OfThread().Get<Value>(font, "text", NumbersDetail(),
                                      [&]
                                      {
                                          made = true;
                                          return Value();
                                      });
    return !made;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Expectations expectations;
    for (int i = 0; i < 4; ++i)
    {
        const QGuiApplication application(argc, argv);
        expectations.Expect(!Hits(), "nothing of what the application before knew");
        expectations.Expect(Hits(), "kept for this application");
        expectations.Expect(Hits(), "kept for this application, again");
    }
    return expectations.ExitCode();
}
