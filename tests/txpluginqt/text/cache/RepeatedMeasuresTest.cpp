// Labels measured more than once, from what is kept of them.
#include <memory>
#include <optional>
#include <thread>

#include <QFile>
#include <QFont>
#include <QFontDatabase>
#include <QImage>
#include <QtEndian>

#include <tests/support/QuietTest.h>
#include <tests/txpluginqt/text/LabelFont.h>
#include <tests/txpluginqt/text/LabelTexts.h>
#include <tests/txpluginqt/text/Measures.h>

#include "CacheSize.h"

using namespace TZObjects;

using namespace txqt;

namespace
{

QFont& Inner(TXFont& font) { return *static_cast<QFont*>(font.GetInternalObject()); }

class RepeatedMeasuresTest : public QuietTest
{
protected:
    /// With a font and on a thread that have measured nothing before; what this one and its font keep stays.
    static Measures MeasuredAfresh(TXFont& font, const std::wstring& text)
    {
        const TXRefPtr<TXFont> other = TestEngine().NewFont();
        other->Create();
        Inner(*other) = Inner(font);
        std::optional<Measures> measures;
        std::thread([&] { measures.emplace(*other, TXString(text), true); }).join();
        return *measures;
    }

    /// Success when the answers are those that are given where nothing is kept.
    static ::testing::AssertionResult IsFresh(TXFont& font, const std::wstring& text)
    {
        const Measures first(font, TXString(text), true);
        const Measures second(font, TXString(text), true);
        const Measures fresh = MeasuredAfresh(font, text);
        if (first == fresh && second == fresh)
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << first << " and " << second << " where " << fresh << " was expected";
    }

    CacheSize size{kUsualCacheSize};
};

using Change = void (*)(TXFont&);

constexpr Change kChanges[] = {
    [](TXFont& f) { f.SetFontHeight(31); },
    [](TXFont& f) { f.SetFontWidth(40); },
    [](TXFont& f) { f.SetFontWeight(900); },
    [](TXFont& f) { f.SetFontBold(true); },
    [](TXFont& f) { f.SetFontItalic(true); },
    [](TXFont& f) { f.SetFontItalicMode(TXFont::ItalicSlant); },
    [](TXFont& f) { f.SetFontItalicMode(TXFont::ItalicFace); },
    [](TXFont& f) { f.SetFontUnderline(true); },
    [](TXFont& f) { f.SetFontStrikeOut(true); },
    [](TXFont& f) { f.SetFontName("DejaVu Serif"); },
    [](TXFont& f) { f.SetFontName("WenQuanYi Micro Hei"); },
    [](TXFont& f) { f.SetWordSpacing(7.5); },
    [](TXFont& f) { f.SetWordSpacing(0.0); },
    [](TXFont& f) { f.SetFontHalo(true); },
    [](TXFont& f) { f.SetFontHaloWidth(9); },
    [](TXFont& f) { f.SetFontAngle(30); },
    [](TXFont& f) { f.Create(); },
    [](TXFont& f) { Inner(f).setPixelSize(44); },
    [](TXFont& f) { Inner(f).setPointSizeF(21.0); },
    [](TXFont& f) { Inner(f).setStretch(150); },
    [](TXFont& f) { Inner(f).setWordSpacing(8.0); },
    [](TXFont& f) { Inner(f).setLetterSpacing(QFont::PercentageSpacing, 140.0); },
    [](TXFont& f) { Inner(f).setCapitalization(QFont::AllUppercase); },
    [](TXFont& f) { Inner(f).setKerning(false); },
    [](TXFont& f) { Inner(f).setHintingPreference(QFont::PreferNoHinting); },
    [](TXFont& f) { Inner(f) = QFont("DejaVu Sans Mono", 17); },
};

TEST_F(RepeatedMeasuresTest, EveryTextIsMeasuredAsTheFirstTime)
{
    for (const int height : {9, 18, 33})
    {
        FontChoice choice;
        choice.height = height;
        const TXRefPtr<TXFont> font = MakeFont(choice);
        for (const std::wstring& text : LabelTexts())
            ASSERT_TRUE(IsFresh(*font, text)) << TXString(text).toUTF8();
        // And once more when all have been kept, with a font of its own.
        const TXRefPtr<TXFont> other = MakeFont(choice);
        for (const std::wstring& text : LabelTexts())
            ASSERT_TRUE(IsFresh(*other, text)) << TXString(text).toUTF8();
    }
}

TEST_F(RepeatedMeasuresTest, EveryChangeOfTheFontCounts)
{
    const std::vector<std::wstring> texts = {L"AVA Wavy fj", L"two\nlines W", L"<BOL>rich</BOL> WAVE", L""};
    const TXRefPtr<TXFont> font = MakeFont({});
    for (const std::wstring& text : texts)
        ASSERT_TRUE(IsFresh(*font, text));
    for (const Change& change : kChanges)
    {
        change(*font);
        for (const std::wstring& text : texts)
            ASSERT_TRUE(IsFresh(*font, text)) << "change " << (&change - kChanges);
        // From a font without any other change, too.
        const TXRefPtr<TXFont> plain = MakeFont({});
        change(*plain);
        for (const std::wstring& text : texts)
            ASSERT_TRUE(IsFresh(*plain, text)) << "change " << (&change - kChanges);
    }
}

TEST_F(RepeatedMeasuresTest, AFontOfPointsIsMeasuredForItsOwnDevice)
{
    QImage fine(10, 10, QImage::Format_RGB32);
    fine.setDotsPerMeterX(11811);
    fine.setDotsPerMeterY(11811);
    const TXRefPtr<TXFont> font = MakeFont({});
    Inner(*font) = QFont("DejaVu Sans", 20);
    EXPECT_TRUE(IsFresh(*font, L"Wavy"));
    Inner(*font) = QFont(QFont("DejaVu Sans", 20), &fine);
    EXPECT_TRUE(IsFresh(*font, L"Wavy"));
}

/// A face under a name that no font of the machine has, as long as it lives.
class FaceOfItsOwn
{
public:
    /// @param file a face of DejaVu Sans Mono. @param name stands for DejaVu then, and has to be as long; one that was
    /// looked for before Qt may not find. @param tall gives it another ascent.
    FaceOfItsOwn(const QString& file, const QByteArray& name, bool tall)
    {
        QFile original("/usr/share/fonts/truetype/dejavu/" + file);
        original.open(QIODevice::ReadOnly);
        QByteArray face = original.readAll();
        face.replace("DejaVu Sans", name + " Sans").replace(InTwoBytes("DejaVu Sans"), InTwoBytes(name + " Sans"));
        // The directory of tables says where the one with the ascent begins.
        const auto* const entry = reinterpret_cast<const uchar*>(face.constData() + face.indexOf("hhea"));
        if (tall)
            face[static_cast<int>(qFromBigEndian<quint32>(entry + 8)) + 4] = 0x10;
        id = QFontDatabase::addApplicationFontFromData(face);
        EXPECT_GE(id, 0);
    }
    ~FaceOfItsOwn() { QFontDatabase::removeApplicationFont(id); }
    FaceOfItsOwn(const FaceOfItsOwn&) = delete;
    FaceOfItsOwn& operator=(const FaceOfItsOwn&) = delete;

private:
    static QByteArray InTwoBytes(const QByteArray& name)
    {
        QByteArray bytes;
        for (const char c : name)
            bytes.append('\0').append(c);
        return bytes;
    }

    int id = -1;
};

TEST_F(RepeatedMeasuresTest, FontsThatAreTakenFromTheProcessCount)
{
    auto face = std::make_unique<FaceOfItsOwn>("DejaVuSansMono.ttf", "Nobody", true);
    FontChoice choice;
    choice.family = L"Nobody Sans Mono";
    choice.height = 40;
    const TXRefPtr<TXFont> font = MakeFont(choice);
    EXPECT_TRUE(IsFresh(*font, L"Wavy"));
    const Measures before(*font, TXString(L"Wavy"), true);
    face.reset();
    EXPECT_TRUE(IsFresh(*font, L"Wavy"));
    const Measures after(*font, TXString(L"Wavy"), true);
    EXPECT_NE(before.ascent, after.ascent);
    EXPECT_NE(before.ascentInt, after.ascentInt);
}

TEST_F(RepeatedMeasuresTest, AnotherFaceOfTheSameFamilyIsMeasuredForItself)
{
    const FaceOfItsOwn regular("DejaVuSansMono.ttf", "Anyone", true);
    const FaceOfItsOwn bold("DejaVuSansMono-Bold.ttf", "Anyone", false);
    FontChoice choice;
    choice.family = L"Anyone Sans Mono";
    choice.height = 40;
    const TXRefPtr<TXFont> font = MakeFont(choice);
    EXPECT_TRUE(IsFresh(*font, L"Wavy"));
    const Measures before(*font, TXString(L"Wavy"), true);
    font->SetFontBold(true);
    EXPECT_TRUE(IsFresh(*font, L"Wavy"));
    const Measures after(*font, TXString(L"Wavy"), true);
    EXPECT_NE(before.ascent, after.ascent);
    EXPECT_NE(before.ascentInt, after.ascentInt);
}

TEST_F(RepeatedMeasuresTest, TheOperationsAreToldApart)
{
    // In every order, so that each comes first once.
    const TXRefPtr<TXFont> font = MakeFont({});
    const TXString text(L"i      \nWavy fj");
    const Measures fresh = MeasuredAfresh(*font, L"i      \nWavy fj");
    for (int first = 0; first < 7; ++first)
    {
        size.Empty();
        for (int k = 0; k < 14; ++k)
        {
            double w = 0;
            double h = 0;
            double d = 0;
            int wi = 0;
            int hi = 0;
            int di = 0;
            switch ((first + k) % 7)
            {
            case 0:
                font->GetTextExtent(text, w, h, true);
                EXPECT_EQ(std::make_pair(w, h), std::make_pair(fresh.lineWidth, fresh.lineHeight));
                break;
            case 1:
                font->GetTextExtent(text, wi, hi, true);
                EXPECT_EQ(std::make_pair(wi, hi), std::make_pair(fresh.lineWidthInt, fresh.lineHeightInt));
                break;
            case 2:
                font->GetMultiTextExtent(text, w, h, true);
                EXPECT_EQ(std::make_pair(w, h), std::make_pair(fresh.blockWidth, fresh.blockHeight));
                break;
            case 3:
                font->GetMultiTextExtent(text, wi, hi, true);
                EXPECT_EQ(std::make_pair(wi, hi), std::make_pair(fresh.blockWidthInt, fresh.blockHeightInt));
                break;
            case 4:
                font->GetFontMetricsInfo(h, w, d, true);
                EXPECT_EQ(h, fresh.height);
                EXPECT_EQ(w, fresh.ascent);
                EXPECT_EQ(d, fresh.descent);
                break;
            case 5:
                font->GetFontMetricsInfo(hi, wi, di, true);
                EXPECT_EQ(hi, fresh.heightInt);
                EXPECT_EQ(wi, fresh.ascentInt);
                EXPECT_EQ(di, fresh.descentInt);
                break;
            default:
                EXPECT_EQ(font->GetMaxCharWidthOfText(text, true), fresh.charWidth);
            }
        }
    }
}

TEST_F(RepeatedMeasuresTest, WhatIsMeasuredIsKept)
{
    const TXRefPtr<TXFont> font = MakeFont({});
    const TXString text(L"kept");
    const auto keeps = [&](auto measure)
    {
        const std::size_t before = LabelCache::OfThread().Bytes();
        measure();
        EXPECT_EQ(LabelCache::OfThread().Bytes(), before) << "what is measured once is not worth keeping";
        measure();
        const std::size_t twice = LabelCache::OfThread().Bytes();
        measure();
        EXPECT_EQ(LabelCache::OfThread().Bytes(), twice);
        return twice > before;
    };
    double w = 0;
    double h = 0;
    double d = 0;
    int wi = 0;
    int hi = 0;
    int di = 0;
    EXPECT_TRUE(keeps([&] { font->GetTextExtent(text, w, h, true); }));
    EXPECT_TRUE(keeps([&] { font->GetTextExtent(text, wi, hi, true); }));
    EXPECT_TRUE(keeps([&] { font->GetMultiTextExtent(text, w, h, true); }));
    EXPECT_TRUE(keeps([&] { font->GetMultiTextExtent(text, wi, hi, true); }));
    // Those the font keeps itself.
    EXPECT_FALSE(keeps([&] { font->GetFontMetricsInfo(w, h, d, true); }));
    EXPECT_FALSE(keeps([&] { font->GetFontMetricsInfo(wi, hi, di, true); }));
    EXPECT_TRUE(keeps([&] { font->GetMaxCharWidthOfText(text, true); }));
}

} // namespace
