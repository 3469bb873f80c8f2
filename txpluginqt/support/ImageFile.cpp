#include <txpluginqt/support/ImageFile.h>

#include <QBuffer>
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

    // Writers of some formats do not notice that only a part of a file found room, and others print that they do.
    QBuffer encoded;
    if (!encoded.open(QIODevice::WriteOnly) || !QImageWriter(&encoded, format).write(image))
        return false;

    QSaveFile file(path);
    // A file that may be written in a folder that may not.
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    // Committing would not notice either that the last bytes found no room.
    if (file.write(encoded.data()) != encoded.data().size() || !file.flush())
        file.cancelWriting();
    return file.commit();
}

} // namespace txqt
