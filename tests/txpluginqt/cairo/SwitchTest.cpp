// Switching cairo drawing on and off, and what the cairo context takes over from the surface.
#include <tests/support/ImageCompare.h>
#include <tests/txpluginqt/text/cairo/ShortLabel.h>

using namespace TZObjects;

namespace
{

TXRefPtr<TXImage> WhiteImage(int width = 120, int height = 80)
{
    TXRefPtr<TXImage> image = NewImage(width, height, TXImage::Format_ARGB32_Premultiplied);
    image->Fill(TXColor::WHITE_);
    return image;
}

QImage& Pixels(TXImage& image) { return *static_cast<QImage*>(image.GetInternalObject()); }

bool IsWhite(TXImage& image) { return InkedPixels(Pixels(image)) == 0 && image.GetPixel(0, 0).GetColor() == ~0u; }

TXRefPtr<TXGraphics> NewSurface(const Look& look = Look())
{
    TXRefPtr<TXGraphics> surface(TestEngine().NewGraphics());
    surface->SelectFont(MakeFont(look));
    surface->SelectPen(NewPen(look));
    return surface;
}

ShortLabel Call()
{
    ShortLabel call;
    call.x = 10.5;
    call.y = 8.25;
    call.left = call.dx = 12;
    call.top = call.dy = 9;
    call.text = L"Hamburg g";
    return call;
}

/// What a label looks like on a white image, through a context that came about in the given way.
QImage Expected(Entry entry, const ShortLabel& call, const Look& look, DirectCairo::Origin origin, const QImage& before)
{
    QImage image = before.copy();
    DirectCairo direct(image, origin);
    direct.Select(look);
    DrawDirectly(direct, entry, call, look);
    return image;
}

QImage Expected(const ShortLabel& call, const Look& look, DirectCairo::Origin origin)
{
    QImage white(120, 80, QImage::Format_ARGB32_Premultiplied);
    white.fill(Qt::white);
    return Expected(Entry::StringAt, call, look, origin, white);
}

class Switch : public QuietTest
{
};

TEST_F(Switch, FontOptionsShow)
{
    // Without this the other tests could not tell how a context came about.
    ASSERT_FALSE(Expected(Call(), Look(), DirectCairo::Switched) == Expected(Call(), Look(), DirectCairo::Selected));
}

TEST_F(Switch, IsOffUntilSwitchedOn)
{
    const TXRefPtr<TXGraphics> surface = NewSurface();
    EXPECT_FALSE(surface->CairoDrawingEnabled());
    surface->EnableCairoDrawing(true);
    EXPECT_TRUE(surface->CairoDrawingEnabled());
    surface->EnableCairoDrawing(false);
    EXPECT_FALSE(surface->CairoDrawingEnabled());
}

TEST_F(Switch, OnOverAnImageChoosesFontOptionsAndTheFace)
{
    Look look;
    look.family = L"DejaVu Serif";
    look.bold = true;
    look.italic = TXFont::ItalicSlant;
    const TXRefPtr<TXGraphics> surface = NewSurface(look);
    TXRefPtr<TXImage> image = WhiteImage();
    surface->SelectImage(image);
    surface->EnableCairoDrawing(true);
    EXPECT_TRUE(::Draw(*surface, Entry::StringAt, Call()));
    EXPECT_TRUE(SamePixels(Pixels(*image), Expected(Call(), look, DirectCairo::Switched)));
}

TEST_F(Switch, OnWithoutAnImageMakesLabelsFalseUntilOneIsSelected)
{
    const TXRefPtr<TXGraphics> surface = NewSurface();
    surface->EnableCairoDrawing(true);
    for (const Entry entry : kAllEntries)
        EXPECT_FALSE(::Draw(*surface, entry, Call())) << entry;

    TXRefPtr<TXImage> image = WhiteImage();
    surface->SelectImage(image);
    EXPECT_TRUE(::Draw(*surface, Entry::StringAt, Call()));
    EXPECT_TRUE(SamePixels(Pixels(*image), Expected(Call(), Look(), DirectCairo::Selected)));
    for (const Entry entry : kAllEntries)
        EXPECT_TRUE(::Draw(*surface, entry, Call())) << entry;
}

TEST_F(Switch, OnWithAnImageThatIsPaintedButNotSelectedMakesLabelsFalse)
{
    TXRefPtr<TXImage> image = WhiteImage();
    TXRefPtr<TXGraphics> surface(TestEngine().NewGraphics(image.get()));
    surface->SelectFont(MakeFont(Look()));
    surface->EnableCairoDrawing(true);
    for (const Entry entry : kAllEntries)
        EXPECT_FALSE(::Draw(*surface, entry, Call())) << entry;
    EXPECT_TRUE(IsWhite(*image));
}

TEST_F(Switch, OnTwiceChangesNothing)
{
    const TXRefPtr<TXGraphics> surface = NewSurface();
    surface->EnableCairoDrawing(true);
    TXRefPtr<TXImage> image = WhiteImage();
    surface->SelectImage(image);
    // Neither the font options nor the face that a new context would get.
    surface->GetFont()->SetFontBold(true);
    surface->EnableCairoDrawing(true);
    EXPECT_TRUE(::Draw(*surface, Entry::StringAt, Call()));
    EXPECT_TRUE(SamePixels(Pixels(*image), Expected(Call(), Look(), DirectCairo::Selected)));
}

TEST_F(Switch, OffTwiceChangesNothing)
{
    CairoTwins twins;
    twins.Surface().EnableCairoDrawing(false);
    twins.Surface().EnableCairoDrawing(false);
    EXPECT_FALSE(twins.Surface().CairoDrawingEnabled());
}

TEST_F(Switch, OffGoesBackToQt)
{
    const TXRefPtr<TXGraphics> never = NewSurface();
    TXRefPtr<TXImage> expected = WhiteImage();
    never->SelectImage(expected);
    const TXRefPtr<TXGraphics> surface = NewSurface();
    TXRefPtr<TXImage> image = WhiteImage();
    surface->SelectImage(image);
    surface->EnableCairoDrawing(true);
    surface->EnableCairoDrawing(false);
    // The first glyphs of a size may still move Qt's outlines a little.
    EXPECT_TRUE(::Draw(*never, Entry::StringAt, Call()));
    expected->Fill(TXColor::WHITE_);

    EXPECT_TRUE(::Draw(*never, Entry::StringAt, Call()));
    EXPECT_TRUE(::Draw(*surface, Entry::StringAt, Call()));
    EXPECT_TRUE(SamePixels(Pixels(*image), Pixels(*expected)));
    EXPECT_FALSE(Pixels(*image) == Expected(Call(), Look(), DirectCairo::Switched));
}

TEST_F(Switch, OnAgainIsOverTheImageSelectedThen)
{
    const TXRefPtr<TXGraphics> surface = NewSurface();
    TXRefPtr<TXImage> first = WhiteImage();
    TXRefPtr<TXImage> second = WhiteImage();
    surface->SelectImage(first);
    surface->EnableCairoDrawing(true);
    surface->EnableCairoDrawing(false);
    surface->SelectImage(second);
    surface->EnableCairoDrawing(true);
    EXPECT_TRUE(::Draw(*surface, Entry::StringAt, Call()));
    EXPECT_TRUE(SamePixels(Pixels(*second), Expected(Call(), Look(), DirectCairo::Switched)));
    EXPECT_TRUE(IsWhite(*first));
}

TEST_F(Switch, StartsAsTheManagerSays)
{
    TXGraphicsEngineManager::instance("")->EnableCairoDrawing(true);
    TXRefPtr<TXImage> image = WhiteImage();
    const TXRefPtr<TXGraphics> surface = NewSurface();
    TXRefPtr<TXGraphics> painting(TestEngine().NewGraphics(image.get()));
    EXPECT_TRUE(surface->CairoDrawingEnabled());
    EXPECT_TRUE(painting->CairoDrawingEnabled());
    painting = nullptr;
    EXPECT_FALSE(::Draw(*surface, Entry::StringAt, Call()));

    // The default is read once.
    TXGraphicsEngineManager::instance("")->EnableCairoDrawing(false);
    surface->SelectImage(image);
    EXPECT_TRUE(surface->CairoDrawingEnabled());
    EXPECT_TRUE(::Draw(*surface, Entry::StringAt, Call()));
    EXPECT_TRUE(SamePixels(Pixels(*image), Expected(Call(), Look(), DirectCairo::Selected)));
}

TEST_F(Switch, FaceFollowsTheSelectedFont)
{
    CairoTwins twins;
    Look looks[4];
    looks[0].bold = true;
    looks[1].italic = TXFont::ItalicFace;
    looks[2].italic = TXFont::ItalicSlant;
    looks[3].family = L"DejaVu Sans Mono";
    for (const Look& look : looks)
    {
        twins.Select(look);
        twins.Wipe();
        EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringAt, Call()));
        DrawDirectly(twins.Direct(), Entry::StringAt, Call(), look);
        EXPECT_TRUE(twins.SameAndInked()) << look;
    }
}

TEST_F(Switch, FontSelectedWhileOffIsTheFaceWhenOn)
{
    CairoTwins twins;
    Look look;
    look.bold = true;
    twins.Surface().EnableCairoDrawing(false);
    twins.Select(look);
    twins.Surface().EnableCairoDrawing(true);
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringAt, Call()));
    DrawDirectly(twins.Direct(), Entry::StringAt, Call(), look);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(Switch, SelectingAnImageMakesTheContextAnewWithTheFace)
{
    Look look;
    look.bold = true;
    const TXRefPtr<TXGraphics> surface = NewSurface(look);
    TXRefPtr<TXImage> first = WhiteImage();
    TXRefPtr<TXImage> second = WhiteImage();
    surface->SelectImage(first);
    surface->EnableCairoDrawing(true);
    surface->SelectImage(second);
    EXPECT_TRUE(::Draw(*surface, Entry::StringAt, Call()));
    EXPECT_TRUE(SamePixels(Pixels(*second), Expected(Call(), look, DirectCairo::Selected)));
    EXPECT_TRUE(IsWhite(*first));
}

TEST_F(Switch, SelectingTheSameImageKeepsTheContext)
{
    const TXRefPtr<TXGraphics> surface = NewSurface();
    TXRefPtr<TXImage> image = WhiteImage();
    surface->SelectImage(image);
    surface->EnableCairoDrawing(true);
    EXPECT_FALSE(surface->SelectImage(image));
    EXPECT_TRUE(::Draw(*surface, Entry::StringAt, Call()));
    EXPECT_TRUE(SamePixels(Pixels(*image), Expected(Call(), Look(), DirectCairo::Switched)));
}

TEST_F(Switch, SelectingNoImageMakesLabelsFalse)
{
    const TXRefPtr<TXGraphics> surface = NewSurface();
    TXRefPtr<TXImage> image = WhiteImage();
    surface->SelectImage(image);
    surface->EnableCairoDrawing(true);
    surface->SelectImage(nullptr);
    for (const Entry entry : kAllEntries)
        EXPECT_FALSE(::Draw(*surface, entry, Call())) << entry;
    EXPECT_TRUE(IsWhite(*image));
    EXPECT_TRUE(surface->CairoDrawingEnabled());
}

TEST_F(Switch, CompatibleGraphicsMakeTheContextAnewWithTheFace)
{
    TXGraphicsEngineManager::instance("")->SetDefaultImageFormat(TXImage::Format_ARGB32_Premultiplied);
    Look look;
    look.italic = TXFont::ItalicFace;
    const TXRefPtr<TXGraphics> surface = NewSurface(look);
    surface->EnableCairoDrawing(true);
    for (const int height : {80, 40, 130})
    {
        ASSERT_TRUE(surface->CreateCompatibleGraphics(120, height));
        const QImage before = Pixels(*surface->GetImage()).copy();
        EXPECT_TRUE(::Draw(*surface, Entry::OutlineAt, Call()));
        EXPECT_TRUE(SamePixels(Pixels(*surface->GetImage()),
                               Expected(Entry::OutlineAt, Call(), look, DirectCairo::Selected, before)));
        EXPECT_GT(InkedPixels(Pixels(*surface->GetImage())), 0);
    }
}

TEST_F(Switch, CompatibleGraphicsAfterTheSwitchHaveNoFontOptions)
{
    TXGraphicsEngineManager::instance("")->SetDefaultImageFormat(TXImage::Format_ARGB32_Premultiplied);
    const TXRefPtr<TXGraphics> surface = NewSurface();
    TXRefPtr<TXImage> image = WhiteImage();
    surface->SelectImage(image);
    surface->EnableCairoDrawing(true);
    ASSERT_TRUE(surface->CreateCompatibleGraphics(120, 80));
    const QImage before = Pixels(*image).copy();
    EXPECT_TRUE(::Draw(*surface, Entry::StringAt, Call()));
    EXPECT_TRUE(SamePixels(Pixels(*image), Expected(Entry::StringAt, Call(), Look(), DirectCairo::Selected, before)));
}

TEST_F(Switch, DeleteLeavesTheCairoObjects)
{
    CairoTwins twins;
    EXPECT_TRUE(twins.Surface().Delete());
    for (const Entry entry : kAllEntries)
    {
        EXPECT_TRUE(::Draw(twins.Surface(), entry, Call())) << entry;
        DrawDirectly(twins.Direct(), entry, Call(), Look());
    }
    EXPECT_TRUE(twins.SameAndInked());
}

} // namespace
