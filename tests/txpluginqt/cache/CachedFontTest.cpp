// Fonts in the keys of the cache of labels, and what happens to it when the fonts of the process change.
#include <thread>

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QTransform>

#include "LabelCacheTest.h"

namespace
{

using CachedFontTest = LabelCacheTest;

/// Every property of a font by which it measures or draws differently.
struct Property
{
    const char* name;
    void (*set)(QFont&);
};
constexpr Property kProperties[] = {
    {"family", [](QFont& f) { f.setFamily("DejaVu Serif"); }},
    {"families", [](QFont& f) { f.setFamilies({"DejaVu Serif"}); }},
    {"pixel size", [](QFont& f) { f.setPixelSize(31); }},
    {"point size", [](QFont& f) { f.setPointSizeF(31.0); }},
    {"part of a point", [](QFont& f) { f.setPointSizeF(31.5); }},
    {"weight", [](QFont& f) { f.setWeight(QFont::Bold); }},
    {"other weight", [](QFont& f) { f.setWeight(QFont::Black); }},
    {"italic", [](QFont& f) { f.setStyle(QFont::StyleItalic); }},
    {"oblique", [](QFont& f) { f.setStyle(QFont::StyleOblique); }},
    {"stretch", [](QFont& f) { f.setStretch(150); }},
    {"underline", [](QFont& f) { f.setUnderline(true); }},
    {"overline", [](QFont& f) { f.setOverline(true); }},
    {"strike-out", [](QFont& f) { f.setStrikeOut(true); }},
    {"absolute letter spacing", [](QFont& f) { f.setLetterSpacing(QFont::AbsoluteSpacing, 110.0); }},
    {"letter spacing in percent", [](QFont& f) { f.setLetterSpacing(QFont::PercentageSpacing, 110.0); }},
    {"word spacing", [](QFont& f) { f.setWordSpacing(4.0); }},
    {"kerning", [](QFont& f) { f.setKerning(false); }},
    {"capitals", [](QFont& f) { f.setCapitalization(QFont::AllUppercase); }},
    {"small capitals", [](QFont& f) { f.setCapitalization(QFont::SmallCaps); }},
    {"no merging", [](QFont& f) { f.setStyleStrategy(QFont::NoFontMerging); }},
    {"no antialiasing", [](QFont& f) { f.setStyleStrategy(QFont::NoAntialias); }},
    {"no shaping", [](QFont& f) { f.setStyleStrategy(QFont::PreferNoShaping); }},
    {"style hint", [](QFont& f) { f.setStyleHint(QFont::Monospace); }},
    {"no hinting", [](QFont& f) { f.setHintingPreference(QFont::PreferNoHinting); }},
    {"full hinting", [](QFont& f) { f.setHintingPreference(QFont::PreferFullHinting); }},
    {"style name", [](QFont& f) { f.setStyleName("Bold"); }},
    {"fixed pitch", [](QFont& f) { f.setFixedPitch(true); }},
};

TEST_F(CachedFontTest, FontsThatDifferInOnePropertyAreToldApart)
{
    const QFont plain = Font();
    ASSERT_FALSE(HitsFont(plain));
    for (const Property& property : kProperties)
    {
        QFont font = plain;
        property.set(font);
        EXPECT_FALSE(HitsFont(font)) << property.name;
        // Sizes in points depend on a device as well.
        if (font.pixelSize() <= 0)
            continue;
        EXPECT_TRUE(HitsFont(font)) << property.name;
        // The same font made anew shares nothing with the first but its properties.
        QFont again = Font(1);
        again.setPixelSize(20);
        property.set(again);
        EXPECT_TRUE(HitsFont(again)) << property.name;
    }
    EXPECT_TRUE(HitsFont(plain));
}

TEST_F(CachedFontTest, AFontThatChangesAfterwardsIsAnotherFont)
{
    QFont font = Font();
    ASSERT_FALSE(HitsFont(font));
    font.setPixelSize(21);
    EXPECT_FALSE(HitsFont(font));
    font.setPixelSize(20);
    EXPECT_TRUE(HitsFont(font));
}

TEST_F(CachedFontTest, PointsOnDevicesOfDifferentResolutionAreToldApart)
{
    QImage coarse(10, 10, QImage::Format_RGB32);
    coarse.setDotsPerMeterY(2835);
    coarse.setDotsPerMeterX(2835);
    QImage fine = coarse.copy();
    fine.setDotsPerMeterY(11811);
    fine.setDotsPerMeterX(11811);
    const QFont font("DejaVu Sans", 20);
    const QFont onCoarse(font, &coarse);
    const QFont onFine(font, &fine);
    ASSERT_NE(QFontMetricsF(onCoarse).height(), QFontMetricsF(onFine).height());
    ASSERT_FALSE(HitsFont(onCoarse));
    EXPECT_FALSE(HitsFont(onFine));
}

TEST_F(CachedFontTest, IsEmptiedWhenFontsAreAddedToTheProcessOrTakenFromIt)
{
    ASSERT_FALSE(Hits("a"));
    ASSERT_TRUE(Hits("a"));
    const int id = QFontDatabase::addApplicationFont("/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf");
    ASSERT_GE(id, 0);
    EXPECT_FALSE(Hits("a"));
    EXPECT_TRUE(Hits("a"));
    ASSERT_TRUE(QFontDatabase::removeApplicationFont(id));
    EXPECT_FALSE(Hits("a"));
    EXPECT_TRUE(Hits("a"));
}

TEST_F(CachedFontTest, IsEmptiedOnOtherThreadsAsWellWhenFontsAreAdded)
{
    std::thread(
        []
        {
            EXPECT_FALSE(Hits("a"));
            EXPECT_TRUE(Hits("a"));
            // Here as well as anywhere else.
            const int id = QFontDatabase::addApplicationFont("/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf");
            EXPECT_FALSE(Hits("a"));
            QFontDatabase::removeApplicationFont(id);
            EXPECT_FALSE(Hits("a"));
            EXPECT_TRUE(Hits("a"));
        })
        .join();
}

} // namespace
