#include "Images.h"
#include "ResourceTest.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <tests/support/ImageCompare.h>

using namespace TZObjects;

namespace
{

// Images loaded from files.
class ImageFileTest : public ResourceTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(image);
        ASSERT_TRUE(folder.isValid());
        image->CreateImage(3, 2, TXImage::Format_RGB32);
        image->Fill(0xff0a0b0cu);
    }

    // A UTF-8 path, as the operation takes it.
    QByteArray Path(const QString& name) const { return folder.filePath(name).toUtf8(); }

    void ExpectAbsent()
    {
        EXPECT_EQ(image->GetInternalObject(), nullptr);
        EXPECT_EQ(image->GetWidth(), 0);
        EXPECT_EQ(image->GetBits(), nullptr);
    }

    QTemporaryDir folder;
    TXRefPtr<TXImage> image{TestEngine().NewImage()};
    const QImage picture = Pattern(13, 9, QImage::Format_ARGB32);
};

} // namespace

TEST_F(ImageFileTest, LoadsAFile)
{
    for (const char* const name : {"a.png", "b.bmp", "c.jpg", "d.ppm"})
    {
        SCOPED_TRACE(name);
        ASSERT_TRUE(picture.save(folder.filePath(name)));
        EXPECT_TRUE(image->CreateCompatibleImage(Path(name).constData()));
        EXPECT_TRUE(SamePixels(QtImage(*image), QImage(folder.filePath(name))));
    }
}

TEST_F(ImageFileTest, AnAbsentImageBecomesPresent)
{
    image->Delete();
    ASSERT_TRUE(picture.save(folder.filePath("a.png")));
    EXPECT_TRUE(image->CreateCompatibleImage(Path("a.png").constData()));
    EXPECT_TRUE(SamePixels(QtImage(*image), picture));
}

TEST_F(ImageFileTest, TheFormatIsThatOfTheContent)
{
    ASSERT_TRUE(picture.save(folder.filePath("really-png.jpg"), "PNG"));
    ASSERT_TRUE(picture.save(folder.filePath("no-suffix"), "BMP"));
    EXPECT_TRUE(image->CreateCompatibleImage(Path("really-png.jpg").constData()));
    EXPECT_TRUE(SamePixels(QtImage(*image), picture));
    EXPECT_TRUE(image->CreateCompatibleImage(Path("no-suffix").constData()));
    EXPECT_EQ(image->GetWidth(), 13);
}

TEST_F(ImageFileTest, ThePathIsUtf8)
{
    for (const char* const name : {u8"stra\u00dfe \u00e4\u00f6\u00fc.png", u8"\u5730\u56fe.png"})
    {
        SCOPED_TRACE(name);
        ASSERT_TRUE(picture.save(folder.filePath(QString::fromUtf8(name))));
        EXPECT_TRUE(image->CreateCompatibleImage(Path(QString::fromUtf8(name)).constData()));
        ASSERT_NE(image->GetInternalObject(), nullptr);
        EXPECT_TRUE(SamePixels(QtImage(*image), picture));
    }
}

TEST_F(ImageFileTest, ANullPathKeepsTheImage)
{
    EXPECT_FALSE(image->CreateCompatibleImage(nullptr));
    ASSERT_EQ(image->GetWidth(), 3);
    EXPECT_EQ(image->GetPixel(2, 1).GetColor(), 0xff0a0b0cu);

    image->Delete();
    EXPECT_FALSE(image->CreateCompatibleImage(nullptr));
    ExpectAbsent();
}

TEST_F(ImageFileTest, AMissingFileLeavesTheImageAbsent)
{
    EXPECT_FALSE(image->CreateCompatibleImage(Path("missing.png").constData()));
    ExpectAbsent();
    EXPECT_FALSE(image->CreateCompatibleImage(Path("missing folder/missing.png").constData()));
    ExpectAbsent();
}

TEST_F(ImageFileTest, AFileThatIsNoImageLeavesTheImageAbsent)
{
    QFile file(folder.filePath("text.txt"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no pixels in here");
    file.close();
    EXPECT_FALSE(image->CreateCompatibleImage(Path("text.txt").constData()));
    ExpectAbsent();

    image->CreateImage(3, 2, TXImage::Format_RGB32);
    QFile empty(folder.filePath("empty.png"));
    ASSERT_TRUE(empty.open(QIODevice::WriteOnly));
    empty.close();
    EXPECT_FALSE(image->CreateCompatibleImage(Path("empty.png").constData()));
    ExpectAbsent();
}

TEST_F(ImageFileTest, AFolderOrAnEmptyPathLeavesTheImageAbsent)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir("folder.png"));
    for (const QByteArray& path : {Path("folder.png"), QByteArray("/"), QByteArray("")})
    {
        SCOPED_TRACE(path.toStdString());
        image->CreateImage(3, 2, TXImage::Format_RGB32);
        EXPECT_FALSE(image->CreateCompatibleImage(path.constData()));
        ExpectAbsent();
    }
}

TEST_F(ImageFileTest, TheFileIsNotNeededAfterwards)
{
    ASSERT_TRUE(picture.save(folder.filePath("a.png")));
    EXPECT_TRUE(image->CreateCompatibleImage(Path("a.png").constData()));
    QFile::remove(folder.filePath("a.png"));
    image->SetPixel(0, 0, TXColor::RED_);
    EXPECT_EQ(image->GetPixel(0, 0).GetColor(), TXColor::RED_.GetColor());
    EXPECT_EQ(image->GetPixel(12, 8).GetColor(), picture.pixel(12, 8));
}
