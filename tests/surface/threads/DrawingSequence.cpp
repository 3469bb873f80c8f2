#include "DrawingSequence.h"

#include <QBuffer>

#include <tests/support/ImageCompare.h>
#include <tests/txpluginqt/graphics/RandomCases.h>
#include <tests/txpluginqt/text/Label.h>
#include <tests/txpluginqt/text/RandomLabels.h>

using namespace TZObjects;

namespace
{

constexpr int kWidth = 150;
constexpr int kHeight = 100;
constexpr int kDistinctLabels = 40;
constexpr int kLabelsOnAPicture = 20;

class Sequence
{
public:
    Sequence(TXGraphicsEngine& engine, unsigned seed) : engine(engine), random(seed)
    {
        RandomLabels some(seed);
        for (int i = 0; i < kDistinctLabels; ++i)
            labels.push_back(some.NextLabel());
    }

    Recording Run(int count)
    {
        for (int drawn = 0; drawn < count; ++drawn)
        {
            if (drawn % kLabelsOnAPicture == 0)
                BeginPicture(drawn / kLabelsOnAPicture % 2 == 0);
            DrawLabel();
            DrawShape();
            if (random.Chance(60))
                DrawMarkerOrImage();
            if (random.Chance(40))
                ChangeState();
            if (random.Chance(30))
                Measure();
            if ((drawn + 1) % kLabelsOnAPicture == 0 || drawn + 1 == count)
                EndPicture();
        }
        return std::move(recording);
    }

private:
    void BeginPicture(bool onSelectedImage)
    {
        surface = engine.NewGraphics();
        if (onSelectedImage)
        {
            const TXRefPtr<TXImage> target(engine.NewImage());
            target->CreateImage(kWidth, kHeight, TXImage::Format_ARGB32_Premultiplied);
            surface->SelectImage(target);
        }
        else
            surface->CreateCompatibleGraphics(kWidth, kHeight);
        surface->ClearWithColor(TXColor(240, 235, 220, 255));
        source = SomeImage();
        SelectPenAndBrush();
    }

    void EndPicture()
    {
        recording.pictures.push_back(static_cast<const QImage*>(surface->GetImage()->GetInternalObject())->copy());
        surface = nullptr;
    }

    void Note(double number) { recording.numbers.push_back(number); }

    TXRefPtr<TXImage> SomeImage()
    {
        TXRefPtr<TXImage> made(engine.NewImage());
        constexpr TXImage::Format formats[] = {TXImage::Format_RGB32, TXImage::Format_ARGB32,
                                               TXImage::Format_ARGB32_Premultiplied, TXImage::Format_RGB16,
                                               TXImage::Format_RGB888};
        made->CreateImage(random.Int(3, 40), random.Int(3, 40), random.OneOf(formats));
        made->Fill(random.Color());
        made->Fill(TXRect(1.0, 9.0, 2.0, 12.0), random.Color());
        made->SetPixel(2, 1, random.Color());
        if (random.Chance(50))
            return made;
        // As a file that was read into memory.
        QByteArray encoded;
        QBuffer buffer(&encoded);
        buffer.open(QIODevice::WriteOnly);
        static_cast<const QImage*>(made->GetInternalObject())->save(&buffer, "PNG");
        TXRefPtr<TXImage> loaded(engine.NewImage());
        Note(loaded->Load(reinterpret_cast<unsigned char*>(encoded.data()), encoded.size(), "PNG"));
        return loaded;
    }

    void SelectPenAndBrush()
    {
        const TXRefPtr<TXPen> pen(engine.NewPen());
        pen->Create(static_cast<TXPen::PenStyle>(random.Int(0, 5)), random.Chance(40) ? 1.0 : random.Real(1.0, 6.0),
                    random.Color(), TXPen::FlatCap, random.Chance(50) ? TXPen::MiterJoin : TXPen::RoundJoin);
        surface->SelectPen(pen);
        const TXRefPtr<TXBrush> brush(engine.NewBrush());
        brush->Create(random.Color(), static_cast<TXBrush::BrushStyle>(random.Int(1, 4)));
        if (random.Chance(20))
            brush->SetTextureImage(source);
        surface->SelectBrush(brush);
        if (random.Chance(15))
            surface->SelectGradient(SomeGradient().get());
    }

    TXRefPtr<TXGradient> SomeGradient()
    {
        const TXPoint from = random.Point();
        TXRefPtr<TXGradient> gradient;
        if (random.Chance(50))
            gradient = engine.NewLinearGradient(from.x, from.y, random.Real(0.0, kWidth), random.Real(0.0, kHeight));
        else
            gradient = engine.NewRadialGradient(from.x, from.y, random.Real(1.0, kWidth));
        gradient->SetColorAt(0.0, random.Color());
        gradient->SetColorAt(random.Real(0.1, 0.9), random.Color());
        gradient->SetColorAt(1.0, random.Color());
        return gradient;
    }

    TXGraphics::stGradientParams SomeGradientParams()
    {
        TXGraphics::stGradientParams params;
        params.type = random.Int(0, 2);
        params.startColor = random.Color();
        params.endColor = random.Color();
        params.angle = random.Real(0.0, 360.0);
        return params;
    }

    void DrawLabel()
    {
        const Label& label = labels[static_cast<std::size_t>(random.Int(0, kDistinctLabels - 1))];
        surface->EnableCairoDrawing(random.Chance(40));
        surface->SelectFont(MakeFont(label.font));
        Note(Draw(*surface, kAllEntries[random.Int(0, static_cast<int>(std::size(kAllEntries)) - 1)], label));
    }

    void DrawShape()
    {
        const std::vector<TXPoint> points = random.Points(3, 12);
        const int count = static_cast<int>(points.size());
        const int rings[] = {count / 2, count - count / 2};
        const TXPoint at = random.Point();
        switch (random.Int(0, 12))
        {
        case 0:
            return Note(surface->Polyline(points.data(), count));
        case 1:
            return Note(surface->PolyPolyline(points.data(), rings, 2));
        case 2:
            return Note(surface->Polygon(points.data(), count));
        case 3:
            return Note(surface->Polygon(points.data(), count, SomeGradientParams()));
        case 4:
            return Note(surface->PolyPolygon(points.data(), rings, 2));
        case 5:
            return Note(surface->Rectangle(at.x, at.y, random.Length(), random.Length()));
        case 6:
            return Note(surface->Ellipse(at.x, at.y, random.Length(), random.Length(), random.Int(0, 90), true));
        case 7:
            return Note(surface->EllipseByRadialGradient(at, random.Int(1, 30), random.Color(), random.Color()));
        case 8:
            return Note(surface->Curve(points.data(), count));
        case 9:
            return Note(surface->Arc(at.x, at.y, random.Length(), random.Length(), 20.0, random.Real(0.0, 360.0)));
        case 10:
            return Note(surface->Pie(at.x, at.y, random.Length(), random.Length(), 20.0, random.Real(0.0, 360.0)));
        case 11:
            return Note(surface->FillRect(TXRect(at.x, at.x + 20.0, at.y, at.y + 15.0), SomeGradient().get()));
        default:
            surface->MoveTo(at.x, at.y);
            for (const TXPoint& point : points)
                surface->QuadTo(point.y, point.x, point.x, point.y);
            surface->ClosePath();
            surface->DrawPath();
        }
    }

    void DrawMarkerOrImage()
    {
        const std::vector<TXPoint> points = random.Points(3, 6);
        const int count = static_cast<int>(points.size());
        const double x = random.Real(0.0, kWidth);
        const double y = random.Real(0.0, kHeight);
        const double angle = random.Real(0.0, 360.0);
        const TXRect dst(x, x + random.Real(1.0, 60.0), y, y + random.Real(1.0, 60.0));
        const TXRect src(0.0, random.Int(2, 40), 0.0, random.Int(2, 40));
        switch (random.Int(0, 4))
        {
        case 0:
            return Note(surface->VectorMarker(x, y, 0.3, 0.2, angle, points.data(), count, random.Chance(50)));
        case 1:
            return Note(surface->FontMarker(x, y, 12.0, random.Real(6.0, 30.0), angle, L"DejaVu Sans Mono",
                                            static_cast<short>(random.Int('A', 'Z'))));
        case 2:
            return Note(surface->DrawImage(source.get(), random.Real(0.0, 1.0)));
        case 3:
            return Note(surface->DrawImage(dst, source.get(), src, random.Real(0.0, 1.0)));
        default:
            return Note(surface->DrawImage4BitmapRotate(dst, source.get(), src, angle, random.Real(0.0, 1.0)));
        }
    }

    void ChangeState()
    {
        const std::vector<TXPoint> points = random.Points(3, 8);
        const int count = static_cast<int>(points.size());
        switch (random.Int(0, 7))
        {
        case 0:
            return surface->SetClipRegion(points.data(), &count, 1, random.Chance(50), random.Color());
        case 1:
            return surface->SetClipRegion(points.data(), &count, 1, SomeGradientParams());
        case 2:
            return surface->RestoreClipRegion();
        case 3:
            return surface->SetOpacity(random.Chance(50) ? 1.0 : random.Real(0.3, 1.0));
        case 4:
            return surface->SetCompositionMode(random.Chance(70) ? TXGraphics::CompositionMode_SourceOver
                                                                 : TXGraphics::CompositionMode_Multiply);
        case 5:
            surface->SetWindowOrg(random.Int(-5, 5), random.Int(-5, 5));
            return;
        case 6:
            return surface->EnableAntialiasing(random.Chance(70));
        default:
            return SelectPenAndBrush();
        }
    }

    void Measure()
    {
        const Label& label = labels[static_cast<std::size_t>(random.Int(0, kDistinctLabels - 1))];
        const TXString text(label.text);
        const TXRefPtr<TXFont> font = MakeFont(label.font);
        for (const bool useQt : {true, false})
        {
            double width = 0.0;
            double height = 0.0;
            double ascent = 0.0;
            int wholeWidth = 0;
            int wholeHeight = 0;
            Note(font->GetTextExtent(text, width, height, useQt));
            Note(width);
            Note(height);
            font->GetMultiTextExtent(text, width, height, useQt);
            Note(width);
            Note(height);
            font->GetMultiTextExtent(text, wholeWidth, wholeHeight, useQt);
            Note(wholeWidth);
            Note(wholeHeight);
            font->GetFontMetricsInfo(height, ascent, width, useQt);
            Note(height);
            Note(ascent);
            Note(width);
            Note(font->GetMaxCharWidthOfText(text, useQt));
        }
    }

    TXGraphicsEngine& engine;
    Random random;
    std::vector<Label> labels;
    TXRefPtr<TXGraphics> surface;
    TXRefPtr<TXImage> source;
    Recording recording;
};

} // namespace

Recording RecordDrawing(TXGraphicsEngine& engine, unsigned seed, int labels)
{
    return Sequence(engine, seed).Run(labels);
}

::testing::AssertionResult SameRecording(const Recording& actual, const Recording& expected)
{
    if (actual.numbers.size() != expected.numbers.size() || actual.pictures.size() != expected.pictures.size())
        return ::testing::AssertionFailure() << "not the same calls";
    for (std::size_t i = 0; i < actual.numbers.size(); ++i)
        if (actual.numbers[i] != expected.numbers[i])
            return ::testing::AssertionFailure()
                   << "answer " << i << " is " << actual.numbers[i] << " instead of " << expected.numbers[i];
    for (std::size_t i = 0; i < actual.pictures.size(); ++i)
    {
        const ::testing::AssertionResult same = SamePixels(actual.pictures[i], expected.pictures[i]);
        if (!same)
            return ::testing::AssertionFailure() << "picture " << i << ": " << same.message();
    }
    return ::testing::AssertionSuccess();
}
