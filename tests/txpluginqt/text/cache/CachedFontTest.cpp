// Fonts in the keys of the cache of labels, and what happens to it when the fonts of the process change.
#include <thread>

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainterPath>
#include <QTransform>

#include "LabelCacheTest.h"
#include <tests/support/PixelFont.h>

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

/// What a font draws on a device of that resolution.
QFont OnDevice(const QFont& font, int dotsPerInch)
{
    QImage device(10, 10, QImage::Format_RGB32);
    device.setDotsPerMeterX(qRound(dotsPerInch / 0.0254));
    device.setDotsPerMeterY(qRound(dotsPerInch / 0.0254));
    return QFont(font, &device);
}

TEST_F(CachedFontTest, ResolutionsAreToldApartThatTheComparisonOfFontsDoesNotSee)
{
    QFont spaced = Font();
    spaced.setLetterSpacing(QFont::AbsoluteSpacing, 10.0);
    ASSERT_EQ(OnDevice(spaced, 72), OnDevice(spaced, 300));
    ASSERT_NE(QFontMetricsF(OnDevice(spaced, 72)).horizontalAdvance("Main"),
              QFontMetricsF(OnDevice(spaced, 300)).horizontalAdvance("Main"));
    for (const int dotsPerInch : {72, 100, 300})
    {
        EXPECT_FALSE(HitsFont(OnDevice(spaced, dotsPerInch))) << dotsPerInch;
        EXPECT_TRUE(HitsFont(OnDevice(spaced, dotsPerInch))) << dotsPerInch;
    }
}

class SubstitutionTest : public CachedFontTest
{
protected:
    ~SubstitutionTest() override
    {
        for (const char* const family : {"NoSuchFace", "NoOtherFace"})
            QFont::removeSubstitutions(family);
    }
};

TEST_F(SubstitutionTest, OfAFontsFamilyMakesItAnotherFont)
{
    const QFont font = PixelFont(20, "NoSuchFace");
    const QFont both = PixelFont(20, "NoOtherFace, NoSuchFace");
    QFont listed = PixelFont(20, "DejaVu Sans");
    listed.setFamilies({"NoOtherFace", "NoSuchFace"});
    for (const QFont& tested : {font, both, listed})
    {
        EXPECT_FALSE(HitsFont(tested));
        EXPECT_TRUE(HitsFont(tested));
        QFont::insertSubstitution("NoSuchFace", "DejaVu Serif");
        EXPECT_FALSE(HitsFont(tested));
        EXPECT_TRUE(HitsFont(tested));
        // The same number of substitutions.
        QFont::removeSubstitutions("NoSuchFace");
        QFont::insertSubstitution("NoSuchFace", "DejaVu Sans Mono");
        EXPECT_FALSE(HitsFont(tested));
        QFont::insertSubstitution("NoSuchFace", "DejaVu Serif");
        EXPECT_FALSE(HitsFont(tested));
        QFont::removeSubstitutions("NoSuchFace");
        EXPECT_TRUE(HitsFont(tested)) << "as at first";
    }
}

TEST_F(SubstitutionTest, OfAnotherFamilyConcernsRichTextsOnly)
{
    const QFont font = PixelFont(20, "DejaVu Sans");
    const auto hits = [&](const QString& text) { return Hits(text, 100, font); };
    const QString rich = "<span style=\"font-family:NoSuchFace\">a</span>";
    EXPECT_FALSE(hits("a"));
    EXPECT_FALSE(hits(rich));
    QFont::insertSubstitution("NoSuchFace", "DejaVu Serif");
    EXPECT_TRUE(hits("a"));
    EXPECT_FALSE(hits(rich));
    EXPECT_TRUE(hits(rich));
}

TEST_F(CachedFontTest, WhatAFaceOfColouredBitmapsTakesPartInIsNotKept)
{
    const QString globe = QString::fromUtf8("a\xF0\x9F\x8C\x8D"
                                            "b");
    for (const QString& text : {globe, QString("two\nlines") + globe, QString("plain")})
        for (int size = 17; size < 24; ++size)
        {
            QFont font = Font();
            font.setPixelSize(size);
            const auto advance = [&] { return QFontMetricsF(font).horizontalAdvance(text); };
            const double first = advance();
            EXPECT_FALSE(Hits(text, 100, font));
            const bool isPlain = text == "plain";
            EXPECT_EQ(Hits(text, 100, font), isPlain);
            QPainterPath().addText(0.0, 0.0, font, text);
            EXPECT_TRUE(text != globe || first != advance()) << "it need not be known otherwise";
        }
}

TEST_F(CachedFontTest, FacesThatAreLoadedForOneTextMayChangeAnother)
{
    const QFont font = Font(27);
    // Only a face that knows more characters than it says has one for this.
    const QString text = QString("a") + QChar(0) + "b";
    const auto advance = [&] { return QFontMetricsF(font).horizontalAdvance(text); };
    const double before = advance();
    EXPECT_FALSE(Hits(text, 100, font));
    EXPECT_TRUE(Hits(text, 100, font));
    QFontMetricsF(font).horizontalAdvance(QString::fromUtf8("\xF0\x9F\x8C\x8D"));
    EXPECT_NE(advance(), before) << "it need not be known otherwise";
    EXPECT_FALSE(Hits(text, 100, font));
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
