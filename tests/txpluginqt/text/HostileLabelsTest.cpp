// Labels come from data that strangers made, and must not make the host open what they name.
#include <sys/stat.h>

#include <fstream>
#include <sstream>

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

#include "HostileLabels.h"
#include "LabelTest.h"
#include "Measures.h"
#include <tests/support/ChildProcess.h>

using namespace TZObjects;

namespace
{

class HostileLabelsTest : public LabelTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(folder.isValid());
        picture.fill(Qt::red);
        ASSERT_TRUE(picture.save(folder.filePath("stranger.png")));
        QFile sheet(folder.filePath("stranger.css"));
        ASSERT_TRUE(sheet.open(QIODevice::WriteOnly));
        sheet.write("p, b, span, body, li { font-size: 60px; color: red; background-color: red }");
        sheet.close();
        ASSERT_EQ(mkfifo(qPrintable(folder.filePath("stranger.fifo")), 0600), 0);
    }

    std::string Folder() const { return folder.path().toStdString(); }

    /// Runs the child in the folder, so that relative names point to the files as well. A child that hangs ends as
    /// one that fails. @return the names that it handed to the system.
    std::string NamesUsed(const std::string& arguments) const
    {
        const std::string trace = Folder() + "/trace";
        // A sanitizer cannot search for leaks in a process that is observed.
        const Outcome outcome = RunCommand("cd '" + Folder() +
                                           "' && ASAN_OPTIONS=detect_leaks=0 QT_QPA_PLATFORM=offscreen timeout 30 "
                                           "strace -f -qq -e trace=%file -e signal=none -o '" +
                                           trace + "' '" TX_DRAW_HOSTILE_LABELS "' '" + Folder() + "' " + arguments);
        EXPECT_EQ(outcome.exitCode, 0) << outcome.log;
        std::stringstream names;
        names << std::ifstream(trace).rdbuf();
        return names.str();
    }

    QTemporaryDir folder;
    QImage picture{300, 200, QImage::Format_RGB32};
};

TEST_F(HostileLabelsTest, NothingThatALabelNamesIsOpened)
{
    const std::string names = NamesUsed("");
    ASSERT_NE(names.find("libtxpluginqt"), std::string::npos) << "the plugin was not loaded";
    const std::size_t at = names.find(kStranger);
    EXPECT_EQ(at, std::string::npos) << names.substr(at, 200);
}

TEST_F(HostileLabelsTest, TheObserverSeesWhatIsOpened)
{
    EXPECT_NE(NamesUsed("open").find("stranger.png"), std::string::npos);
}

TEST_F(HostileLabelsTest, APictureThatExistsIsMeasuredLikeOneThatDoesNot)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    ASSERT_TRUE(picture.save(&buffer, "PNG"));
    const std::wstring data = QString::fromLatin1("data:image/png;base64," + bytes.toBase64()).toStdWString();
    const TXRefPtr<TXFont> font = MakeFont({});
    const auto measured = [&](const std::wstring& source)
    {
        Measures measures(*font, TXString(L"<BOL>x</BOL><img src=\"" + source + L"\">"), true);
        // It is taken from the source's own characters.
        measures.charWidth = 0.0;
        return measures;
    };
    const std::wstring path = folder.path().toStdWString();
    const Measures absent = measured(path + L"/absent.png");
    EXPECT_EQ(measured(path + L"/stranger.png"), absent);
    EXPECT_EQ(measured(L"file://" + path + L"/stranger.png"), absent);
    EXPECT_EQ(measured(data), absent);
    EXPECT_LT(absent.lineHeight, picture.height());
}

TEST_F(HostileLabelsTest, NeitherAPictureNorAStyleSheetIsDrawn)
{
    const TXRefPtr<TXFont> font = MakeFont({});
    Surface().SelectFont(font);
    Surface().ClearWithColor(TXColor::WHITE_);
    Images().SurfacePainter().setPen(Qt::blue);
    std::vector<std::wstring> labels = HostileLabels(Folder());
    labels.push_back(L"<style>@import url(data:text/css,b{color:red})</style><b>x</b>");
    for (const std::wstring& text : labels)
        for (const Entry entry : {Entry::StringInBox, Entry::StringMoved, Entry::StringByFontAngle, Entry::StringAt})
        {
            // Opening the pipe would hold this process up for good; the child has tried.
            if (text.find(L".fifo") != std::wstring::npos)
                continue;
            Label label;
            label.text = text;
            Draw(Surface(), entry, label);
        }
    const QImage& drawn = Images().Actual();
    ASSERT_NE(drawn.pixel(0, 0), 0u);
    int red = 0;
    for (int y = 0; y < drawn.height(); ++y)
        for (int x = 0; x < drawn.width(); ++x)
            red += qRed(drawn.pixel(x, y)) > qGreen(drawn.pixel(x, y)) + 40;
    EXPECT_EQ(red, 0);
}

} // namespace
