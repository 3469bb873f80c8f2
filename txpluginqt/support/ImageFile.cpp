#include <txpluginqt/support/ImageFile.h>

#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QSaveFile>

namespace txqt
{

bool WriteImageFile(const QImage& image, const QString& path)
{
    const QFileInfo info(path);
    // Qt would empty an existing file before it finds out that it cannot write the format.
    const QByteArray format = info.suffix().toLower().toLatin1();
    if (image.isNull() || path.isEmpty() || !QImageWriter::supportedImageFormats().contains(format))
        return false;
    // Devices and pipes cannot be replaced by a finished file.
    if (info.exists() && !info.isFile())
        return !info.isDir() && image.save(path);

    QSaveFile file(path);
    // A file that may be written in a folder that may not.
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    if (!QImageWriter(&file, format).write(image))
        file.cancelWriting();
    return file.commit();
}

} // namespace txqt
