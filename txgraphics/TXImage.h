#pragma once

#include <txbase/TXColor.h>
#include <txbase/TXRect.h>
#include <txbase/TXRefBase.h>
#include <txbase/TXString.h>
#include <txgraphics/Export.h>

namespace TZObjects
{

class TXGraphics;

/// A raster: the target that a surface paints into, and the source of image drawing and texture brushes.
///
/// An image is absent until a creating operation succeeds. Every creating operation deletes the present image first,
/// unless its arguments are refused. On an absent image accessors answer neutral values and the rest does nothing.
/// A surface that paints into an image follows it: when the image is created anew, loaded or deleted, painting goes on
/// in the new pixels, or ends, as if the image had been selected again.
class TXGRAPHICS_API TXImage : public TXRefBase
{
public:
    /// The layout of a pixel. A host may cast any number; which ones an operation takes stands with the operation.
    enum Format : int
    {
        Format_Invalid = 0,                 ///< No pixels.
        Format_Mono = 1,                    ///< 1 bit, most significant bit first.
        Format_MonoLSB = 2,                 ///< 1 bit, least significant bit first.
        Format_Indexed8 = 3,                ///< 8-bit index into a colour table.
        Format_RGB32 = 4,                   ///< 0xffRRGGBB.
        Format_ARGB32 = 5,                  ///< 0xAARRGGBB, not premultiplied.
        Format_ARGB32_Premultiplied = 6,    ///< 0xAARRGGBB, premultiplied; the fastest, and exact with cairo.
        Format_RGB16 = 7,                   ///< 5-6-5.
        Format_ARGB8565_Premultiplied = 8,  ///< 8-5-6-5, premultiplied.
        Format_RGB666 = 9,                  ///< 6-6-6.
        Format_ARGB6666_Premultiplied = 10, ///< 6-6-6-6, premultiplied.
        Format_RGB555 = 11,                 ///< 5-5-5.
        Format_ARGB8555_Premultiplied = 12, ///< 8-5-5-5, premultiplied.
        Format_RGB888 = 13,                 ///< Three bytes: red, green, blue.
        Format_RGB444 = 14,                 ///< 4-4-4.
        Format_ARGB4444_Premultiplied = 15, ///< 4-4-4-4, premultiplied.
        Format_RGBX8888 = 16,               ///< Four bytes: red, green, blue, 0xff.
        Format_RGBA8888 = 17,               ///< Four bytes: red, green, blue, alpha.
        Format_RGBA8888_Premultiplied = 18, ///< Four bytes, premultiplied.
        Format_BGR30 = 19,                  ///< 10-10-10, blue highest.
        Format_A2BGR30_Premultiplied = 20,  ///< 2-10-10-10, blue highest, premultiplied.
        Format_RGB30 = 21,                  ///< 10-10-10.
        Format_A2RGB30_Premultiplied = 22,  ///< 2-10-10-10, premultiplied.
        Format_Alpha8 = 23,                 ///< 8-bit alpha.
        Format_Grayscale8 = 24              ///< 8-bit grey.
    };

    TXImage();
    ~TXImage() override;

    /// Loads the image file at @p path (UTF-8; the format is detected). False for null, which keeps the present image,
    /// and for a file that cannot be read as an image, which leaves the image absent.
    virtual bool CreateCompatibleImage(const char* path) = 0;
    /// Makes an image of the default format, every pixel transparent white. @p graphics is not consulted and may be
    /// null. @return true; sizes below 1 give an image without pixels.
    virtual bool CreateCompatibleImage(TXGraphics* graphics, const int& width, const int& height) = 0;
    /// The first pixel's address; rows follow top to bottom. Null when absent. Valid until the image is created anew.
    virtual void* GetBits() = 0;
    /// Decodes an encoded image file of @p size bytes in memory into the present image. It does not take raw pixels.
    virtual void SetBits(const void* data, unsigned int size) = 0;
    /// Width in pixels; 0 when absent.
    virtual int GetWidth() = 0;
    /// Height in pixels; 0 when absent.
    virtual int GetHeight() = 0;
    /// Makes the image absent. @return true.
    virtual bool Delete() = 0;
    /// Makes an image with undefined pixels. The format's number is used as it is; one that the backend does not know
    /// gives an image without pixels. @return true.
    virtual bool CreateImage(const int& width, const int& height, Format format) = 0;
    /// Makes an image over the caller's pixels, which are neither copied nor owned and must outlive the image. Rows are
    /// aligned to 4 bytes. Formats 0 to 22 are used as they are, all others become `Format_ARGB32`. @return true.
    virtual bool CreateImage(unsigned char* bits, const int& width, const int& height, Format format) = 0;
    /// The same in the engine manager's default format.
    virtual bool CreateImage(unsigned char* bits, const int& width, const int& height) = 0;
    /// Decodes an encoded image file of @p length bytes in memory.
    /// @param data the bytes; null gives false and keeps the present image.
    /// @param length how many; below 1 gives false and keeps the present image.
    /// @param format the file format's name, such as "PNG"; null detects it.
    /// @return false when the bytes cannot be decoded; the image is absent then.
    virtual bool Load(unsigned char* data, const int& length, const char* format) = 0;
    /// Writes an image file; the format follows the path's suffix. Failure is not reported, and leaves a file that was
    /// there before as it was.
    virtual void Save(const TXString& path) const = 0;
    /// The same with a path in Latin-1.
    virtual void Save(const char* path) const = 0;
    /// Gives every pixel of the rectangle, clipped to the image and truncated to whole pixels, the colour.
    virtual void Fill(const TXRect& rect, const TXColor& color) = 0;
    /// Gives every pixel the colour. While the engine manager's default format is 10 or 15, the image is filled with
    /// the premultiplied packed colour as a raw value, whatever its own format.
    virtual void Fill(const TXColor& color) = 0;
    /// Gives every pixel the raw value.
    virtual void Fill(unsigned int value) = 0;
    /// The colour of a pixel, not premultiplied; the default colour outside the image or when absent.
    virtual TXColor GetPixel(int x, int y) = 0;
    /// Sets the colour of a pixel; nothing outside the image, or in formats 1 to 3.
    virtual void SetPixel(int x, int y, const TXColor& color) = 0;
    /// The size of the pixels in bytes, saturating at the largest `int`; 0 when absent.
    virtual int GetByteCount() = 0;

    /// The backend's image object, owned by this image; null when absent.
    void* GetInternalObject() const { return internalObject; }

protected:
    void* internalObject = nullptr; ///< The backend's image object; the backend class owns it.
};

} // namespace TZObjects
