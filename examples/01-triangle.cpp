// The smallest host: loads the plugin, fills a triangle, writes a picture. Usage: 01-triangle PICTURE
#include <iostream>

#include <txgraphics/txgraphics.h>

using namespace TZObjects;

int main(int argc, char** argv)
{
    if (argc != 2)
    {
        std::cerr << "usage: 01-triangle PICTURE" << std::endl;
        return 2;
    }
    TXGraphicsEngineManager* const manager = TXGraphicsEngineManager::instance("");
    manager->SetDefaultImageFormat(TXImage::Format_ARGB32_Premultiplied);
    TXString error;
    const TXRefPtr<TXGraphicsEngine> engine = manager->LoadPlugin("txpluginqt", &error);
    if (!engine)
    {
        std::cerr << error.toUTF8() << std::endl;
        return 3;
    }

    const TXRefPtr<TXGraphics> surface = engine->NewGraphics();
    surface->CreateCompatibleGraphics(800, 600);
    surface->ClearWithColor(TXColor::WHITE_);
    const TXRefPtr<TXBrush> brush = engine->NewBrush();
    brush->Create(TXColor(120, 180, 140, 255), TXBrush::SolidBrush);
    surface->SelectBrush(brush);
    const TXPoint triangle[] = {{100, 500}, {400, 80}, {700, 500}};
    surface->Polygon(triangle, 3);
    if (surface->Save(argv[1]))
        return 0;
    std::cerr << "cannot write " << argv[1] << std::endl;
    return 1;
}
