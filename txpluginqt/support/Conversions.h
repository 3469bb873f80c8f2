#pragma once

#include <type_traits>

#include <QColor>
#include <QPointF>
#include <QRect>
#include <QString>

#include <txbase/TXColor.h>
#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>
#include <txbase/TXString.h>
#include <txpluginqt/support/Numbers.h>

namespace txqt
{

/// By channels, alpha kept.
inline QColor ToQColor(const TZObjects::TXColor& color)
{
    return QColor(color.getR(), color.getG(), color.getB(), color.getA());
}

/// By the packed value, alpha dropped: the result is opaque.
inline QColor ToOpaqueQColor(const TZObjects::TXColor& color) { return QColor(color.GetColor()); }

inline TZObjects::TXColor ToTXColor(const QColor& color)
{
    return TZObjects::TXColor(color.red(), color.green(), color.blue(), color.alpha());
}

inline QString ToQString(const TZObjects::TXString& text)
{
    return QString::fromWCharArray(text.wstr(), text.length());
}

inline TZObjects::TXString ToTXString(const QString& text) { return TZObjects::TXString(text.toStdWString()); }

/// Each of the four truncated toward zero.
inline QRect TruncatedRect(double x, double y, double width, double height)
{
    return QRect(Truncated(x), Truncated(y), Truncated(width), Truncated(height));
}

inline QRect TruncatedRect(const TZObjects::TXRect& rect)
{
    return TruncatedRect(rect.left, rect.top, rect.Width(), rect.Height());
}

static_assert(sizeof(TZObjects::TXPoint) == sizeof(QPointF) && std::is_standard_layout_v<TZObjects::TXPoint> &&
                  std::is_same_v<qreal, double>,
              "a host's array of points is handed to Qt as it is");

/// The host's own array, for Qt to read.
inline const QPointF* AsQPoints(const TZObjects::TXPoint* points) { return reinterpret_cast<const QPointF*>(points); }

} // namespace txqt
