#include "Images.h"
#include "ResourceTest.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <tests/support/ImageCompare.h>

using namespace TZObjects;

namespace
{

class ImageSaveTest : public ResourceTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(image);
        ASSERT_TRUE(folder.isValid());
        ASSERT_EQ(folder.path().toLatin1(), folder.path().toUtf8()) << "the folder's own path must be plain";
        image->CreateImage(13, 9, TXImage::Format_ARGB32);
        PaintPattern(QtImage(*image));
    }

    void SaveWide(const QString& name) { image->Save(TXString(folder.filePath(name).toStdWString())); }
    void SaveNarrow(const QByteArray& name) { image->Save((folder.path().toLatin1() + "/" + name).constData()); }

    QByteArray Content(const QString& name) const
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        return file.readAll();
    }
    void Write(const QString& name, const QByteArray& content) const
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(content), content.size());
    }
    QStringList Files() const
    {
        return QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    // The bytes that Qt writes for the picture under a name with the same suffix.
    QByteArray Expected(const QString& name) const
    {
        const QTemporaryDir other;
        const QString path = other.filePath("twin" + name.mid(name.lastIndexOf('.')));
        EXPECT_TRUE(picture.save(path));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    QTemporaryDir folder;
    TXRefPtr<TXImage> image{TestEngine().NewImage()};
    const QImage picture = Pattern(13, 9, QImage::Format_ARGB32);
};

const char* const kSuffixes[] = {"png", "PNG", "bmp", "jpg", "jpeg", "ppm", "pgm", "pbm"};

} // namespace

TEST_F(ImageSaveTest, TheSuffixChoosesTheFormat)
{
    for (const char* const suffix : kSuffixes)
    {
        SCOPED_TRACE(suffix);
        const QString wide = QString("wide.") + suffix;
        SaveWide(wide);
        EXPECT_EQ(Content(wide), Expected(wide));

        const QString narrow = QString("narrow.") + suffix;
        SaveNarrow(narrow.toLatin1());
        EXPECT_EQ(Content(narrow), Expected(narrow));
    }
}

// These formats are source code that names the picture after the file, so only the pixels are compared.
TEST_F(ImageSaveTest, TheSuffixChoosesFormatsThatHoldANameToo)
{
    for (const char* const name : {"picture.xpm", "picture.xbm"})
    {
        SCOPED_TRACE(name);
        SaveWide(name);
        const QImage wide(folder.filePath(name));
        ASSERT_TRUE(QFile::remove(folder.filePath(name)));
        SaveNarrow(name);
        const QImage narrow(folder.filePath(name));
        EXPECT_TRUE(SamePixels(wide, QImage::fromData(Expected(name))));
        EXPECT_TRUE(SamePixels(narrow, wide));
    }
}

TEST_F(ImageSaveTest, APictureComesBackAsItWas)
{
    SaveWide("picture.png");
    EXPECT_TRUE(SamePixels(QImage(folder.filePath("picture.png")), picture));
    EXPECT_EQ(Files(), QStringList("picture.png"));
}

TEST_F(ImageSaveTest, SavingLeavesTheImageAsItWas)
{
    void* const bits = image->GetBits();
    SaveWide("picture.png");
    EXPECT_EQ(image->GetBits(), bits);
    EXPECT_TRUE(SameBytes(QtImage(*image), picture));
}

TEST_F(ImageSaveTest, AnExistingFileIsReplacedAsAWhole)
{
    Write("picture.png", QByteArray(100000, 'x'));
    SaveWide("picture.png");
    EXPECT_EQ(Content("picture.png"), Expected("picture.png"));
    Write("picture.png", QByteArray(100000, 'x'));
    SaveNarrow("picture.png");
    EXPECT_EQ(Content("picture.png"), Expected("picture.png"));
}

TEST_F(ImageSaveTest, WidePathsHoldAnyCharacter)
{
    const QString name = QString::fromUtf8(u8"\u5730\u56fe \u00e4 \U0001F5FA.png");
    SaveWide(name);
    EXPECT_EQ(Content(name), Expected(name));
    EXPECT_EQ(Files(), QStringList(name));
}

TEST_F(ImageSaveTest, NarrowPathsAreLatin1)
{
    SaveNarrow("stra\xdf"
               "e.png");
    EXPECT_EQ(Files(), QStringList(QString::fromUtf8(u8"stra\u00dfe.png")));
    EXPECT_EQ(Content(QString::fromUtf8(u8"stra\u00dfe.png")), Expected("x.png"));
}

TEST_F(ImageSaveTest, Utf8InANarrowPathIsNotUnderstood)
{
    SaveNarrow("\xc3\xa4.png");
    EXPECT_EQ(Files(), QStringList(QString::fromUtf8(u8"\u00c3\u00a4.png")));
}

TEST_F(ImageSaveTest, RelativePathsWork)
{
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(folder.path()));
    image->Save(TXString(L"wide.png"));
    image->Save("narrow.png");
    QDir::setCurrent(before);
    EXPECT_EQ(Files(), (QStringList{"narrow.png", "wide.png"}));
}

TEST_F(ImageSaveTest, ASuffixThatCannotBeWrittenLeavesAnExistingFileAlone)
{
    for (const char* const name : {"map.xyz", "map.gif", "map", "map.", "map.png.txt", "map.svg"})
    {
        SCOPED_TRACE(name);
        Write(name, "something of the host's");
        SaveWide(name);
        EXPECT_EQ(Content(name), "something of the host's");
        SaveNarrow(name);
        EXPECT_EQ(Content(name), "something of the host's");
    }
}

TEST_F(ImageSaveTest, ASuffixThatCannotBeWrittenMakesNoFile)
{
    for (const char* const name : {"map.xyz", "map.gif", "map", "map."})
    {
        SCOPED_TRACE(name);
        SaveWide(name);
        SaveNarrow(name);
        EXPECT_EQ(Files(), QStringList());
    }
}

TEST_F(ImageSaveTest, AnImageThatCannotBeWrittenLeavesAnExistingFileAlone)
{
    // Wider than the file format allows.
    image->CreateImage(70000, 1, TXImage::Format_RGB32);
    image->Fill(0xff112233u);
    Write("map.jpg", "something of the host's");
    SaveWide("map.jpg");
    EXPECT_EQ(Content("map.jpg"), "something of the host's");
    SaveNarrow("map.jpg");
    EXPECT_EQ(Content("map.jpg"), "something of the host's");
    EXPECT_EQ(Files(), QStringList("map.jpg"));
    // The library that writes the format complains by itself.
    TakeMessages();
}

TEST_F(ImageSaveTest, AnAbsentImageLeavesAnExistingFileAlone)
{
    Write("map.png", "something of the host's");
    image->CreateImage(0, 0, TXImage::Format_ARGB32);
    SaveWide("map.png");
    SaveNarrow("map.png");
    image->Delete();
    SaveWide("map.png");
    SaveNarrow("map.png");
    EXPECT_EQ(Content("map.png"), "something of the host's");
    EXPECT_EQ(Files(), QStringList("map.png"));
}

TEST_F(ImageSaveTest, AFolderIsNotReplaced)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir("folder.png"));
    Write("folder.png/inside.txt", "something of the host's");
    SaveWide("folder.png");
    SaveNarrow("folder.png");
    SaveWide("folder.png/");
    SaveWide("");
    EXPECT_EQ(Content("folder.png/inside.txt"), "something of the host's");
    EXPECT_EQ(Files(), QStringList("folder.png"));
}

TEST_F(ImageSaveTest, AMissingFolderIsNotMade)
{
    SaveWide("missing/map.png");
    SaveNarrow("missing/map.png");
    EXPECT_EQ(Files(), QStringList());
}

TEST_F(ImageSaveTest, NoPathSavesNothing)
{
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(folder.path()));
    image->Save(TXString());
    image->Save(static_cast<const char*>(nullptr));
    image->Save("");
    QDir::setCurrent(before);
    EXPECT_EQ(Files(), QStringList());
}
