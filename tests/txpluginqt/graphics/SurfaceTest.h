#pragma once

#include <string>
#include <vector>

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>
#include <tests/support/TestEngine.h>
#include <txgraphics/txgraphics.h>

/// Collects what is printed through Qt while it lives.
class MessageLog
{
public:
    MessageLog();
    ~MessageLog();
    MessageLog(const MessageLog&) = delete;
    MessageLog& operator=(const MessageLog&) = delete;

    /// The messages so far, which are forgotten by this call.
    std::vector<std::string> Take();

private:
    QtMessageHandler previous;
};

/// A test of surfaces. Whatever it does, nothing may be printed through Qt, and the engine manager's settings are what
/// a process starts with before and after it.
class SurfaceTest : public ::testing::Test
{
protected:
    void TearDown() override;

    /// A new image over the uneven background of the test twins.
    static TZObjects::TXRefPtr<TZObjects::TXImage>
    NewPaintedImage(int width = 60, int height = 40,
                    TZObjects::TXImage::Format format = TZObjects::TXImage::Format_ARGB32_Premultiplied);
    /// A surface that paints on a new image of that kind.
    static TZObjects::TXRefPtr<TZObjects::TXGraphics>
    NewPaintingSurface(int width = 60, int height = 40,
                       TZObjects::TXImage::Format format = TZObjects::TXImage::Format_ARGB32_Premultiplied);
    /// A solid pen.
    static TZObjects::TXRefPtr<TZObjects::TXPen> NewPen(const TZObjects::TXColor& color, double width);
    /// A solid brush.
    static TZObjects::TXRefPtr<TZObjects::TXBrush> NewBrush(const TZObjects::TXColor& color);
    /// A font of that height.
    static TZObjects::TXRefPtr<TZObjects::TXFont> NewFont(int height);

    /// The painter that a surface draws with now.
    static QPainter& PainterOf(TZObjects::TXGraphics& surface);
    /// The Qt image behind an image.
    static QImage& PixelsOf(TZObjects::TXImage& image);
    /// The Qt pen, brush and font behind a resource.
    static const QPen& PenOf(TZObjects::TXPen& pen);
    static const QBrush& BrushOf(TZObjects::TXBrush& brush);
    static const QFont& FontOf(TZObjects::TXFont& font);
    /// The hints that a painter has when it has just begun on an image.
    static QPainter::RenderHints FreshHints();
    static constexpr QPainter::RenderHints kAntialiasing = QPainter::Antialiasing | QPainter::TextAntialiasing;

    /// What Qt printed during the test so far; a test that expects messages takes them away with this.
    MessageLog messages;

private:
    ManagerSettingsGuard settings;
};
