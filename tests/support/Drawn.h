#pragma once

#include <functional>

#include <QImage>
#include <QPainter>

/// What @p draw leaves on an image of the uneven background, with an antialiased painter.
QImage Drawn(const QSize& size, QImage::Format format, const std::function<void(QPainter&)>& draw);
