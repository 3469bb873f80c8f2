#include "ImageCompare.h"

#include <QDir>

namespace
{

QString FailureName()
{
    static int failures = 0;
    const ::testing::TestInfo* const test = ::testing::UnitTest::GetInstance()->current_test_info();
    const QString name = test ? QString("%1.%2").arg(test->test_suite_name(), test->name()) : QString("no-test");
    return QString(name).replace('/', '_') + QString("-%1").arg(++failures);
}

void Keep(const QImage& actual, const QImage& expected)
{
    const QDir folder(TX_TEST_FAILURES);
    folder.mkpath(".");
    const QString base = folder.filePath(FailureName());
    QImage difference(expected.size(), QImage::Format_RGB32);
    for (int y = 0; y < expected.height(); ++y)
        for (int x = 0; x < expected.width(); ++x)
            difference.setPixel(x, y, actual.pixel(x, y) == expected.pixel(x, y) ? 0xff000000u : 0xffff00ffu);
    actual.save(base + "-actual.png");
    expected.save(base + "-expected.png");
    difference.save(base + "-difference.png");
}

// Numbers in a failure are written one by one, and lose their base in between.
std::string Hexadecimal(QRgb pixel) { return QString::number(pixel, 16).toStdString(); }

} // namespace

::testing::AssertionResult SamePixels(const QImage& actual, const QImage& expected)
{
    if (actual.size() != expected.size() || actual.format() != expected.format())
        return ::testing::AssertionFailure()
               << "an image of " << actual.width() << " x " << actual.height() << ", format " << actual.format()
               << ", where " << expected.width() << " x " << expected.height() << ", format " << expected.format()
               << " was expected";
    if (actual == expected)
        return ::testing::AssertionSuccess();

    int differing = 0;
    QPoint first;
    for (int y = 0; y < expected.height(); ++y)
        for (int x = 0; x < expected.width(); ++x)
            if (actual.pixel(x, y) != expected.pixel(x, y) && ++differing == 1)
                first = QPoint(x, y);
    Keep(actual, expected);
    return ::testing::AssertionFailure() << differing << " pixels differ, the first at (" << first.x() << ", "
                                         << first.y() << "): 0x" << Hexadecimal(actual.pixel(first)) << " where 0x"
                                         << Hexadecimal(expected.pixel(first)) << " was expected";
}

int InkedPixels(const QImage& image)
{
    int inked = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            inked += image.pixel(x, y) != image.pixel(0, 0);
    return inked;
}
