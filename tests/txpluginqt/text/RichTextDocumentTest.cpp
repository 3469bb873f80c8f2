
#include <QString>
#include <QTextDocument>

#include <gtest/gtest.h>
#include <tests/support/RandomSource.h>
#include <txpluginqt/text/RichTextDocument.h>

using namespace txqt;

namespace
{

TEST(RichTextTest, RichIsWhatQtTakesForHtml)
{
    const QString nothing;
    EXPECT_FALSE(IsRichText(nothing));
    for (const char* const rich : {"<b>x</b>", "x <u>y", "&lt;", "a &lt;b", "<!DOCTYPE html>", " <!doc",
                                   "<?xml version=\"1.0\"?><p>x", "<br>\n", "<BR/>"})
    {
        EXPECT_TRUE(IsRichText(rich)) << rich;
        EXPECT_TRUE(Qt::mightBeRichText(rich)) << rich;
    }
    for (const char* const plain : {"", "x", "R & D", "&amp;", "& lt;", "a < b", "<x>", "first\n<b>second</b>", "a > b",
                                    "x\n&lt;", "<b", "\xe5\x8c\x97"})
    {
        EXPECT_FALSE(IsRichText(plain)) << plain;
        EXPECT_FALSE(Qt::mightBeRichText(plain)) << plain;
    }
}

TEST(RichTextTest, RandomMixturesOfPiecesAreJudgedAsByQt)
{
    const char* const pieces[] = {"<", ">", "/", "&",  "lt;", "&lt;", "<b>", "</b>",  "b",  "u",     "br",   "x",
                                  " ", "!", "?", "\n", "\t",  "doc",  "xml", "<?xml", "?>", "<!doc", "<!--", "="};
    RandomSource random(7);
    int rich = 0;
    for (int i = 0; i < 20000; ++i)
    {
        QString text;
        for (int k = 0; k < i % 7; ++k)
            text += QLatin1String(random.OneOf(pieces));
        ASSERT_EQ(IsRichText(text), Qt::mightBeRichText(text)) << text.toStdString();
        rich += IsRichText(text);
    }
    EXPECT_GT(rich, 2000);
}

} // namespace
