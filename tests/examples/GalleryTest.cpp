#include <algorithm>
#include <set>
#include <string>

#include <QDir>
#include <QFile>
#include <QHash>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <tests/support/ChildProcess.h>

// The sheets are looked at as a reader does: every card has a caption that fits and a picture of its own, and nothing
// runs out of its place. What the operations draw is compared elsewhere.
namespace
{

constexpr char kNotice[] = "graphics engine create!\n";
constexpr QRgb kPaper = qRgb(250, 248, 242);
constexpr QRgb kCard = qRgb(255, 255, 255);
constexpr QRgb kBackground = qRgb(238, 243, 244);
constexpr int kColumns = 5;
constexpr int kCardWidth = 300;
constexpr int kCardHeight = 196;
const QRect kCaption(8, 6, 284, 26);
const QRect kPicture(12, 34, 276, 150);

struct SheetCase
{
    const char* name;
    int cards;
};

void PrintTo(const SheetCase& tested, std::ostream* out) { *out << tested.name; }

constexpr SheetCase kSheets[] = {{"shapes", 30}, {"styles", 20}, {"markers", 20}, {"images", 25}, {"clipping", 20}};

Outcome RunGallery(const QString& arguments)
{
    return RunCommand(("'" TX_TEST_GALLERY "' " + arguments).toStdString());
}

QByteArray ContentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::string PixelsOf(const QImage& image)
{
    return std::string(reinterpret_cast<const char*>(image.constBits()), static_cast<std::size_t>(image.sizeInBytes()));
}

/// How many pixels have another colour.
int InkOn(const QImage& image, QRgb ground)
{
    int ink = 0;
    for (int y = 0; y < image.height(); ++y)
    {
        for (int x = 0; x < image.width(); ++x)
            ink += image.pixel(x, y) != ground;
    }
    return ink;
}

QRgb CommonestColour(const QImage& image)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y)
    {
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    }
    const auto fewer = [&](QRgb a, QRgb b) { return counts[a] < counts[b]; };
    const QList<QRgb> colours = counts.keys();
    return *std::max_element(colours.begin(), colours.end(), fewer);
}

class GalleryTest : public ::testing::Test
{
protected:
    QString Path(const QString& name) const { return folder.filePath(name); }
    QString Quoted(const QString& name) const { return "'" + Path(name) + "'"; }

    const QTemporaryDir folder;
};

class GallerySheetTest : public GalleryTest, public ::testing::WithParamInterface<SheetCase>
{
protected:
    void SetUp() override
    {
        const QString name = GetParam().name;
        const Outcome outcome = RunGallery(Quoted(".") + " " + name);
        ASSERT_EQ(outcome.exitCode, 0) << outcome.log;
        ASSERT_EQ(outcome.log, kNotice);
        sheet = QImage(Path(name + ".png")).convertToFormat(QImage::Format_RGB32);
        ASSERT_EQ(sheet.size(),
                  QSize(kColumns * kCardWidth, (GetParam().cards + kColumns - 1) / kColumns * kCardHeight));
    }

    QImage Card(int number) const
    {
        return sheet.copy(number % kColumns * kCardWidth, number / kColumns * kCardHeight, kCardWidth, kCardHeight);
    }

    QImage sheet;
};

TEST_P(GallerySheetTest, EveryCardHasACaptionAndAPictureOfItsOwn)
{
    std::set<std::string> captions;
    std::set<std::string> pictures;
    int onBackground = 0;
    for (int number = 0; number < GetParam().cards; ++number)
    {
        SCOPED_TRACE(number);
        const QImage caption = Card(number).copy(kCaption);
        EXPECT_GT(InkOn(caption, kCard), 40);
        EXPECT_TRUE(captions.insert(PixelsOf(caption)).second);
        const QImage picture = Card(number).copy(kPicture);
        EXPECT_GT(InkOn(picture, CommonestColour(picture)), 400);
        EXPECT_TRUE(pictures.insert(PixelsOf(picture)).second);
        onBackground += InkOn(picture, kBackground) < picture.width() * picture.height();
    }
    // Some pictures fill their place.
    EXPECT_GT(onBackground, GetParam().cards / 2);
}

TEST_P(GallerySheetTest, NothingRunsOutOfItsPlace)
{
    for (int number = 0; number < GetParam().cards; ++number)
    {
        SCOPED_TRACE(number);
        QImage card = Card(number);
        for (const QRect& place : {kCaption, kPicture})
        {
            for (int y = place.top(); y <= place.bottom(); ++y)
            {
                for (int x = place.left(); x <= place.right(); ++x)
                    card.setPixel(x, y, kCard);
            }
        }
        QImage empty(card.size(), card.format());
        empty.fill(kPaper);
        for (int y = 4; y < kCardHeight - 4; ++y)
        {
            for (int x = 4; x < kCardWidth - 4; ++x)
                empty.setPixel(x, y, kCard);
        }
        EXPECT_EQ(card, empty);
        // A caption that touches the edge of its place has been cut off or goes on beyond it.
        const QImage caption = Card(number).copy(kCaption);
        EXPECT_EQ(InkOn(caption.copy(caption.width() - 1, 0, 1, caption.height()), kCard), 0);
    }
}

TEST_P(GallerySheetTest, TheSheetInTheDocumentationHasTheSameCards)
{
    EXPECT_EQ(QImage(QString(TX_TEST_DOCS "/gallery/") + GetParam().name + ".png").size(), sheet.size());
}

/// What is selected is what draws: colours that a card cannot show by chance, and at least how many of their pixels.
struct Ink
{
    const char* sheet;
    int card;
    QRgb color;
    int pixels;
};

constexpr QRgb kDeepWater = qRgb(46, 98, 148);
constexpr QRgb kWater = qRgb(116, 172, 206);
constexpr QRgb kForest = qRgb(122, 164, 112);
constexpr QRgb kBrick = qRgb(204, 92, 64);
constexpr QRgb kPlum = qRgb(126, 78, 124);
constexpr QRgb kLand = qRgb(242, 230, 198);

constexpr Ink kInks[] = {{"shapes", 1, kDeepWater, 800},   {"shapes", 2, kBrick, 800},
                         {"shapes", 5, kForest, 2000},     {"shapes", 29, kForest, 8000},
                         {"styles", 1, kWater, 8000},      {"styles", 2, kForest, 6000},
                         {"styles", 3, kBrick, 2000},      {"styles", 4, kPlum, 1500},
                         {"styles", 8, kBrick, 400},       {"styles", 9, qRgb(190, 210, 150), 5000},
                         {"markers", 1, kDeepWater, 1000}, {"markers", 10, kDeepWater, 200},
                         {"markers", 15, kDeepWater, 200}, {"images", 4, kBrick, 1500},
                         {"images", 7, kBrick, 3000},      {"images", 10, kDeepWater, 800},
                         {"clipping", 0, kWater, 2500},    {"clipping", 5, kLand, 3000},
                         {"clipping", 19, kBrick, 2000}};

TEST_P(GallerySheetTest, PensBrushesAndImagesHaveTheirColours)
{
    for (const Ink& ink : kInks)
    {
        if (std::string(ink.sheet) != GetParam().name)
            continue;
        SCOPED_TRACE(ink.card);
        const QImage picture = Card(ink.card).copy(kPicture);
        EXPECT_GT(picture.width() * picture.height() - InkOn(picture, ink.color), ink.pixels);
    }
}

INSTANTIATE_TEST_SUITE_P(Sheets, GallerySheetTest, ::testing::ValuesIn(kSheets),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(GalleryTest, DrawsAllSheetsAndTheSameOnesEveryTime)
{
    QDir(folder.path()).mkdir("again");
    for (const char* place : {".", "again"})
    {
        const Outcome outcome = RunGallery(Quoted(place));
        ASSERT_EQ(outcome.exitCode, 0) << outcome.log;
        ASSERT_EQ(outcome.log, kNotice);
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files),
              QStringList({"clipping.png", "images.png", "markers.png", "shapes.png", "styles.png"}));
    for (const SheetCase& sheet : kSheets)
    {
        const QByteArray first = ContentsOf(Path(QString(sheet.name) + ".png"));
        EXPECT_FALSE(first.isEmpty()) << sheet.name;
        EXPECT_EQ(first, ContentsOf(Path(QString("again/") + sheet.name + ".png"))) << sheet.name;
    }
}

TEST_F(GalleryTest, DrawsTheNamedSheetsOnly)
{
    EXPECT_EQ(RunGallery(Quoted(".") + " markers styles").exitCode, 0);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList({"markers.png", "styles.png"}));
}

TEST_F(GalleryTest, WithoutAFolderSaysHowItIsUsed)
{
    const Outcome outcome = RunGallery("");
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_EQ(outcome.log, "usage: gallery-operations FOLDER [SHEET]...\n");
}

TEST_F(GalleryTest, NamesASheetThatDoesNotExistAndDrawsNothing)
{
    const Outcome outcome = RunGallery(Quoted(".") + " markers shape");
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_EQ(outcome.log, "no sheet \"shape\": there are shapes, styles, markers, images and clipping\n");
    EXPECT_TRUE(QDir(folder.path()).entryList(QDir::Files).isEmpty());
}

TEST_F(GalleryTest, NamesTheFileThatCannotBeWritten)
{
    const Outcome outcome = RunGallery(Quoted("nowhere"));
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.log, kNotice + ("cannot write " + Path("nowhere/shapes.png") + "\n").toStdString());
}

TEST_F(GalleryTest, SaysWhyThePluginCannotBeLoaded)
{
    QFile plugin(Path("libtxpluginqt.so"));
    ASSERT_TRUE(plugin.open(QIODevice::WriteOnly) && plugin.write("nonsense") > 0);
    plugin.close();
    const Outcome outcome = RunCommand(("env TX_PLUGIN_PATH=" + Quoted(".")).toStdString() + " '" TX_TEST_GALLERY "' " +
                                       Quoted(".").toStdString());
    EXPECT_EQ(outcome.exitCode, 3);
    EXPECT_NE(outcome.log.find("/libtxpluginqt.so: cannot be loaded: "), std::string::npos) << outcome.log;
    EXPECT_EQ(outcome.log.find('\n'), outcome.log.size() - 1) << outcome.log;
}

TEST_F(GalleryTest, LabelsAreOnEveryCardOnceThroughQtAndOnceThroughCairo)
{
    constexpr QRgb kLabelCard = qRgb(168, 196, 196);
    const Outcome outcome = RunCommand(("'" TX_TEST_GALLERY_LABELS "' " + Quoted("labels.png")).toStdString());
    ASSERT_EQ(outcome.exitCode, 0) << outcome.log;
    const QImage sheet = QImage(Path("labels.png")).convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(sheet.size(), QSize(4 * 380, 5 * 150));
    EXPECT_EQ(QImage(TX_TEST_DOCS "/gallery/labels.png").size(), sheet.size());
    for (int number = 0; number < 20; ++number)
    {
        SCOPED_TRACE(number);
        const QImage card = sheet.copy(number % 4 * 380, number / 4 * 150, 380, 150);
        EXPECT_EQ(card.pixel(3, 75), kPaper);
        EXPECT_GT(InkOn(card.copy(8, 6, 364, 18), kLabelCard), 40);
        const QImage throughQt = card.copy(8, 26, 180, 118);
        const QImage throughCairo = card.copy(194, 26, 180, 118);
        EXPECT_GT(InkOn(throughQt, kLabelCard), 100);
        EXPECT_GT(InkOn(throughCairo, kLabelCard), 100);
        EXPECT_NE(throughQt, throughCairo);
    }
}

} // namespace
