#include <vector>

#include <QString>

#include <gtest/gtest.h>
#include <txpluginqt/text/RichTextTags.h>

#include "NaiveTags.h"
#include <tests/support/AllocationCount.h>
#include <tests/support/RandomSource.h>

using namespace txqt;

namespace
{

QString Converted(QString text)
{
    ConvertRichTextTags(text);
    return text;
}

std::string ConvertedBytes(const char* utf8) { return Converted(QString::fromUtf8(utf8)).toStdString(); }

TEST(RichTextTagsTest, EverySpellingIsReplaced)
{
    for (const auto& [tag, html] : kTagsAndHtml)
    {
        EXPECT_EQ(ConvertedBytes(tag), html);
        EXPECT_EQ(ConvertedBytes((std::string("a") + tag + "b" + tag + tag).c_str()),
                  std::string("a") + html + "b" + html + html);
    }
}

TEST(RichTextTagsTest, WholeLabelsAreRewrittenByteForByte)
{
    EXPECT_EQ(ConvertedBytes("<BOL>Main St</BOL>"), "<span style=\"font-weight:700\">Main St</span>");
    EXPECT_EQ(Converted("<BOL>").size(), 30);
    EXPECT_EQ(ConvertedBytes("<UND>a</und>"), "<u>a</u>");
    EXPECT_EQ(ConvertedBytes("<ITA><ACP>\xc3\xa4</ACP></ITA>\n<scp>B"),
              "<span style=\"font-style:italic\"><span style=\"text-transform:uppercase\">\xc3\xa4</span></span>\n"
              "<span style=\"text-transform:lowercase\">B");
    EXPECT_EQ(ConvertedBytes("<BOL"), "<BOL");
    EXPECT_EQ(ConvertedBytes("<<BOL>>"), "<<span style=\"font-weight:700\">>");
    EXPECT_EQ(ConvertedBytes("</BOL></bol>"), "</span></span>");
}

TEST(RichTextTagsTest, OtherSpellingsAndOtherTagsStay)
{
    for (const auto& [tag, html] : kTagsAndHtml)
    {
        const QString spelling = QString::fromLatin1(tag);
        // Every mixture of upper and lower case that is neither all of one nor all of the other.
        const int first = spelling.startsWith("</") ? 2 : 1;
        for (int mask = 1; mask < 7; ++mask)
        {
            QString mixed = spelling;
            for (int i = 0; i < 3; ++i)
                mixed[first + i] = (mask >> i) & 1 ? mixed[first + i].toUpper() : mixed[first + i].toLower();
            EXPECT_EQ(Converted(mixed), mixed);
        }
    }
    for (const char* const text : {"<br>", "a<br>b<br/>", "<b>x</b>", "<u>x</u>", "< BOL>", "<BOL >", "<BOL/>",
                                   "</ BOL>", "&lt;BOL&gt;", "BOL", "<>", "<", ">", "a < b > c", "<BOLD>", "<BO\nL>"})
        EXPECT_EQ(ConvertedBytes(text), text);
}

TEST(RichTextTagsTest, PlainTextIsUnchangedAndAllocatesNothing)
{
    for (const wchar_t* const plain :
         {L"", L"Main Street", L"two\nlines", L"R & D > C", L"\u5317\u4eac\U0001F600 \u0645"})
    {
        const QString original = QString::fromWCharArray(plain);
        QString text = original;
        const AllocationCounter counter;
        ConvertRichTextTags(text);
        const std::size_t allocated = counter.SoFar().count;
        EXPECT_EQ(allocated, 0u);
        EXPECT_EQ(text, original);
        // Not even a copy of the shared text.
        EXPECT_EQ(text.constData(), original.constData());
    }
}

TEST(RichTextTagsTest, TheCounterCounts)
{
    const AllocationCounter counter;
    const std::vector<char> block(1000);
    EXPECT_EQ(counter.SoFar().count, 1u);
}

TEST(RichTextTagsTest, EmptyAndNullTextsStay)
{
    EXPECT_TRUE(Converted(QString()).isNull());
    EXPECT_TRUE(Converted(QString("")).isEmpty());
}

TEST(RichTextTagsTest, RandomMixturesOfPiecesAreRewrittenAsByAWalkOverTheText)
{
    std::vector<QString> pieces = {"<",
                                   ">",
                                   "/",
                                   "</",
                                   "B",
                                   "BOL",
                                   "bol",
                                   "Bol",
                                   "O",
                                   "L",
                                   "<BO",
                                   "OL>",
                                   "ITA>",
                                   "<u>",
                                   "</span>",
                                   "<span style=\"font-weight:700\">",
                                   "\n",
                                   "<br>",
                                   " ",
                                   "x",
                                   QString::fromWCharArray(L"\u5317"),
                                   QString(QChar(0xd800)),
                                   QString(QChar(0)),
                                   "<sCP>",
                                   "</UNd>",
                                   "<ACp>"};
    for (const auto& [tag, html] : kTagsAndHtml)
        pieces.push_back(tag);
    RandomSource random(41);
    for (int i = 0; i < 20000; ++i)
    {
        QString text;
        for (int count = random.Below(14); count > 0; --count)
            text += random.OneOf(pieces);
        ASSERT_EQ(Converted(text), ConvertedNaively(text)) << text.toStdString();
    }
}

TEST(RichTextTagsTest, LongLabelsAreRewrittenWhole)
{
    EXPECT_EQ(Converted(QString("<ITA>x</ita>").repeated(5000)),
              QString("<span style=\"font-style:italic\">x</span>").repeated(5000));
}

} // namespace
