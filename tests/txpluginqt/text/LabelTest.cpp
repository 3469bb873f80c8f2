#include "LabelTest.h"

#include <cstring>

#include <tests/support/ImageCompare.h>

using namespace TZObjects;

LabelTest::LabelTest(int width, int height)
    : background(width, height, QImage::Format_ARGB32_Premultiplied), twins(std::make_unique<Twins>(width, height))
{
    PaintBackground(background);
}

void LabelTest::Wipe()
{
    // Both images are being painted on, so that only their bytes may be replaced.
    for (QImage* const image : {&twins->Actual(), &twins->Expected()})
        std::memcpy(image->bits(), background.constBits(), static_cast<std::size_t>(background.sizeInBytes()));
}

void LabelTest::Compare(Entry entry, const Label& label, const Paint& paint, const Change& change,
                        ::testing::AssertionResult& result)
{
    Wipe();
    twins->Both([](QPainter& painter) { painter.save(); });
    twins->Both([&](QPainter& painter) { painter.setPen(penColor); });
    if (change)
        twins->Both(change);
    const TXRefPtr<TXFont> font = MakeFont(label.font);
    Surface().SelectFont(font);
    if (afterSelecting)
        afterSelecting(*font);
    twins->Direct().setFont(DirectFont(label.font));
    const PainterState before(twins->SurfacePainter());

    result = ::testing::AssertionSuccess();
    if (!Draw(Surface(), entry, label))
        result = ::testing::AssertionFailure() << "the answer is false; ";
    twins->Direct().save();
    twins->Direct().setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    paint(twins->Direct());
    twins->Direct().restore();

    if (const auto state = SameState(PainterState(twins->SurfacePainter()), before); !state)
        result = ::testing::AssertionFailure() << state.message();
    if (const auto state = SameState(twins->SurfacePainter(), twins->Direct()); !state)
        result = ::testing::AssertionFailure() << state.message();
    twins->Both([](QPainter& painter) { painter.restore(); });
}

::testing::AssertionResult LabelTest::SameAs(Entry entry, const Label& label, const Paint& paint, const Change& change)
{
    ::testing::AssertionResult result = ::testing::AssertionSuccess();
    // Qt moves the outlines of a face by a 64th of a pixel once it has loaded the face's glyph images, so one painting
    // may have come before that and the other after it. The second time both come after it.
    for (int attempt = 0; attempt < 2 && (attempt == 0 || twins->Actual() != twins->Expected()); ++attempt)
        Compare(entry, label, paint, change, result);
    if (const auto pixels = SamePixels(twins->Actual(), twins->Expected()); !pixels)
        return ::testing::AssertionFailure() << pixels.message() << "; " << NameOf(entry) << " " << label;
    return result ? result : result << "; " << NameOf(entry) << " " << label;
}

::testing::AssertionResult LabelTest::SameAsDirect(Entry entry, const Label& label, const Change& change)
{
    return SameAs(
        entry, label, [&](QPainter& painter) { DrawDirectly(painter, entry, label); }, change);
}

::testing::AssertionResult LabelTest::DiffersFrom(Entry entry, const Label& label, const Paint& paint)
{
    ::testing::AssertionResult result = ::testing::AssertionSuccess();
    for (int attempt = 0; attempt < 2; ++attempt)
        Compare(entry, label, paint, {}, result);
    if (twins->Actual() != twins->Expected())
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "the same picture; " << NameOf(entry) << " " << label;
}

::testing::AssertionResult LabelTest::DrawsNothing(Entry entry, const Label& label, bool expected)
{
    Wipe();
    Surface().SelectFont(MakeFont(label.font));
    const PainterState before(twins->SurfacePainter());
    const bool answer = Draw(Surface(), entry, label);
    if (answer != expected)
        return ::testing::AssertionFailure() << "answers " << answer << "; " << NameOf(entry) << " " << label;
    if (twins->Actual() != background)
        return ::testing::AssertionFailure() << "ink; " << NameOf(entry) << " " << label;
    return SameState(PainterState(twins->SurfacePainter()), before);
}
