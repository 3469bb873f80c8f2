#include <QDir>
#include <QFile>
#include <QImageWriter>
#include <QTemporaryDir>

#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

class SaveFileTest : public SurfaceTest
{
protected:
    QString PathOf(const QString& name) const { return folder.filePath(name); }
    static TXString Text(const QString& text) { return TXString(text.toStdWString()); }

    void WriteOlder(const QString& name) const
    {
        QFile file(PathOf(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("older");
    }

    QByteArray Read(const QString& name) const
    {
        QFile file(PathOf(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder;
};

TEST_F(SaveFileTest, FormatFollowsTheSuffix)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface(40, 30, TXImage::Format_RGB32);
    for (const char* const name : {"picture.png", "picture.bmp", "picture.PNG", "picture.ppm"})
    {
        EXPECT_TRUE(surface->Save(Text(PathOf(name)))) << name;
        QImage loaded;
        EXPECT_TRUE(loaded.load(PathOf(name), QString(name).section('.', 1).toUpper().toLatin1().constData())) << name;
        EXPECT_EQ(loaded.convertToFormat(QImage::Format_RGB32), PixelsOf(*surface->GetImage())) << name;
    }
}

TEST_F(SaveFileTest, KeepsTransparencyInPng)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface(40, 30, TXImage::Format_ARGB32);
    EXPECT_TRUE(surface->Save(Text(PathOf("picture.png"))));
    EXPECT_EQ(QImage(PathOf("picture.png")).convertToFormat(QImage::Format_ARGB32), PixelsOf(*surface->GetImage()));
}

TEST_F(SaveFileTest, ReplacesAnOlderFileAndGoesOnPainting)
{
    WriteOlder("picture.png");
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    EXPECT_TRUE(surface->Save(Text(PathOf("picture.png"))));
    EXPECT_EQ(QImage(PathOf("picture.png")).size(), QSize(60, 40));
    EXPECT_TRUE(PainterOf(*surface).isActive());
    EXPECT_TRUE(surface->fillRect(TXRect(0, 60, 0, 40), TXColor::RED_));
    EXPECT_TRUE(surface->Save(Text(PathOf("picture.png"))));
    EXPECT_EQ(QImage(PathOf("picture.png")).pixel(30, 20), qRgb(255, 0, 0));
}

TEST_F(SaveFileTest, NeedsAnImageAndNoPainter)
{
    const TXRefPtr<TXGraphics> idle = TestEngine().NewGraphics();
    EXPECT_FALSE(idle->Save(Text(PathOf("x.png"))));
    const TXRefPtr<TXGraphics> empty = TestEngine().NewGraphics(nullptr);
    EXPECT_FALSE(empty->Save(Text(PathOf("x.png"))));
    const TXRefPtr<TXGraphics> absent = TestEngine().NewGraphics();
    absent->SelectImage(TXRefPtr<TXImage>(TestEngine().NewImage()));
    EXPECT_FALSE(absent->Save(Text(PathOf("x.png"))));
    EXPECT_FALSE(QFile::exists(PathOf("x.png")));
    const TXRefPtr<TXGraphics> deleted = NewPaintingSurface();
    deleted->Delete();
    EXPECT_TRUE(deleted->Save(Text(PathOf("x.png"))));
    EXPECT_EQ(QImage(PathOf("x.png")).size(), QSize(60, 40));
}

TEST_F(SaveFileTest, FailureKeepsAnOlderFileAndLeavesNoNewOne)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    for (const char* const name : {"picture.nosuchformat", "picture", "picture."})
    {
        EXPECT_FALSE(surface->Save(Text(PathOf(name)))) << name;
        EXPECT_FALSE(QFile::exists(PathOf(name))) << name;
        WriteOlder(name);
        EXPECT_FALSE(surface->Save(Text(PathOf(name)))) << name;
        EXPECT_EQ(Read(name), QByteArray("older")) << name;
    }
    EXPECT_FALSE(surface->Save(TXString()));
    EXPECT_FALSE(surface->Save(Text(PathOf("no/such/folder/picture.png"))));
    EXPECT_FALSE(surface->Save(Text(folder.path()))) << "a folder is no file";
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 3);
}

TEST_F(SaveFileTest, FailureWhileWritingKeepsAnOlderFile)
{
    ASSERT_TRUE(QImageWriter::supportedImageFormats().contains("jpg"));
    WriteOlder("picture.jpg");
    // A row longer than the format can hold fails once the file was opened.
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface(70000, 1);
    EXPECT_FALSE(surface->Save(Text(PathOf("picture.jpg"))));
    EXPECT_EQ(Read("picture.jpg"), QByteArray("older"));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1) << "something was left behind";
    // Qt's writer of this format tells by itself why it failed.
    TakeMessages();
}

} // namespace
