#pragma once

class QImage;
class QString;

namespace txqt
{

/// Writes an image file whose format follows the path's suffix, at the format's usual quality. The file is complete or
/// not there: one that was there before stays as it was when this fails.
/// @return false for an image without pixels, an empty path, a suffix that no writer knows, or a failed write.
bool WriteImageFile(const QImage& image, const QString& path);

} // namespace txqt
