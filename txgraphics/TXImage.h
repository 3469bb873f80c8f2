#pragma once

#include <txbase/TXColor.h>
#include <txbase/TXRect.h>
#include <txbase/TXRefBase.h>
#include <txbase/TXString.h>
#include <txgraphics/Export.h>

namespace TZObjects
{

class TXGraphics;

/// A raster of pixels: the target that a surface paints into, and the source of image drawing and texture brushes.
///
/// An image is absent until it is made or loaded. Every operation that makes or loads pixels deletes the present ones
/// first, unless it refuses its arguments. On an absent image getters return neutral values, and all other operations
/// do nothing.
///
/// A surface follows the image that it paints into. When the image gets new pixels, the surface paints on in them as if
/// it had selected the image again. When the image is deleted, painting ends.
class TXGRAPHICS_API TXImage : public TXRefBase
{
public:
    /// The layout of a pixel. A host may cast any number; each operation says which ones it takes.
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

    /// Loads an image file.
    /// @param path the file, in UTF-8; its content tells the format. Null keeps the present pixels.
    /// @return false for null, and for a file that cannot be read, which leaves the image absent.
    virtual bool CreateCompatibleImage(const char* path) = 0;
    /// Makes pixels of transparent white in the engine manager's default format.
    /// @param graphics not used; may be null.
    /// @param width,height the size in pixels.
    /// @return true, always. A size below 1, or one that memory does not hold, makes an image without pixels, whose
    /// width is 0.
    virtual bool CreateCompatibleImage(TXGraphics* graphics, const int& width, const int& height) = 0;
    /// Returns the address of the first pixel; rows follow from top to bottom. Null when the image is absent. The
    /// pointer is valid until the image gets other pixels.
    virtual void* GetBits() = 0;
    /// Decodes an image file in memory into a present image. It does not take raw pixels.
    /// @param data the bytes of the file. Null, or what cannot be decoded, leaves an image without pixels.
    /// @param size the number of bytes; 2^31 and above changes nothing.
    virtual void SetBits(const void* data, unsigned int size) = 0;
    /// Returns the width in pixels; 0 when absent.
    virtual int GetWidth() = 0;
    /// Returns the height in pixels; 0 when absent.
    virtual int GetHeight() = 0;
    /// Makes the image absent. @return true.
    virtual bool Delete() = 0;
    /// Makes pixels of undefined content.
    /// @param width,height the size in pixels.
    /// @param format the format, used as it is. A number that the backend does not know makes an image without pixels.
    /// @return true, always. A size below 1, or one that memory does not hold, makes an image without pixels.
    virtual bool CreateImage(const int& width, const int& height, Format format) = 0;
    /// Makes an image over the caller's pixels.
    /// @param bits the pixels; each row is padded to 4 bytes. They are neither copied nor owned and must outlive the
    /// image.
    /// @param width,height the size in pixels.
    /// @param format 0 to 22; any other number gives `Format_ARGB32`.
    /// @return true, always.
    virtual bool CreateImage(unsigned char* bits, const int& width, const int& height, Format format) = 0;
    /// Makes an image over the caller's pixels, as above, in the engine manager's default format.
    virtual bool CreateImage(unsigned char* bits, const int& width, const int& height) = 0;
    /// Decodes an image file in memory.
    /// @param data the bytes of the file; null keeps the present pixels.
    /// @param length the number of bytes; below 1 keeps the present pixels.
    /// @param format the name of the file format, such as "PNG"; null detects it.
    /// @return false for null, for a length below 1, and for bytes that cannot be decoded, which leave the image
    /// absent.
    virtual bool Load(unsigned char* data, const int& length, const char* format) = 0;
    /// Writes an image file. Failure is not reported; it leaves an older file as it was.
    /// @param path the file; its suffix picks the format.
    virtual void Save(const TXString& path) const = 0;
    /// Writes an image file, as above. For compatibility @p path is in Latin-1, unlike all other narrow text.
    virtual void Save(const char* path) const = 0;
    /// Sets every pixel of a rectangle. Images of format 1 to 3 stay as they are.
    /// @param rect the rectangle; it is clipped to the image and truncated to whole pixels.
    /// @param color the colour, alpha included. It replaces the pixels and is not blended.
    virtual void Fill(const TXRect& rect, const TXColor& color) = 0;
    /// Sets every pixel to a colour. While the engine manager's default format is 10 or 15, it sets the premultiplied
    /// packed colour as a raw value instead, whatever the image's own format is.
    virtual void Fill(const TXColor& color) = 0;
    /// Sets every pixel to a raw value.
    virtual void Fill(unsigned int value) = 0;
    /// Returns the colour of a pixel as it is stored: premultiplied where the format is.
    /// @param x,y the pixel.
    /// @return the colour; opaque black outside the image and when absent.
    virtual TXColor GetPixel(int x, int y) = 0;
    /// Sets the colour of a pixel. Outside the image, and in formats 1 to 3, it changes nothing.
    /// @param x,y the pixel.
    /// @param color the colour, not premultiplied.
    virtual void SetPixel(int x, int y, const TXColor& color) = 0;
    /// Returns the number of bytes of the pixels, at most the largest `int`; 0 when absent.
    virtual int GetByteCount() = 0;

    /// Returns the backend's image object, which this image owns; null when absent.
    void* GetInternalObject() const { return internalObject; }

protected:
    void* internalObject = nullptr; ///< The backend's image object. The backend's class owns it.
};

} // namespace TZObjects
