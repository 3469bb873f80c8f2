#pragma once

#include <vector>

#include <txgraphics/TXImage.h>

class QImage;

namespace TZObjects
{

/// Something that draws into an image's pixels and has to follow them when they move.
class PixelUser
{
public:
    /// The pixels are about to go: stop using them.
    virtual void PixelsGoing() = 0;
    /// The change is over; the image has new pixels, or none.
    virtual void PixelsChanged() = 0;
    /// The image itself ends: forget it. The pixels have gone before.
    virtual void ImageEnding() = 0;

protected:
    ~PixelUser() = default;
};

/// An image over a `QImage`, which it owns; the `QImage` is absent until a creating operation succeeds.
class TXImageQT final : public TXImage
{
public:
    TXImageQT();
    ~TXImageQT() override;
    TXImageQT(const TXImageQT&) = delete;
    TXImageQT& operator=(const TXImageQT&) = delete;

    bool CreateCompatibleImage(const char* path) override;
    bool CreateCompatibleImage(TXGraphics* graphics, const int& width, const int& height) override;
    void* GetBits() override;
    void SetBits(const void* data, unsigned int size) override;
    int GetWidth() override;
    int GetHeight() override;
    bool Delete() override;
    bool CreateImage(const int& width, const int& height, Format format) override;
    bool CreateImage(unsigned char* bits, const int& width, const int& height, Format format) override;
    bool CreateImage(unsigned char* bits, const int& width, const int& height) override;
    bool Load(unsigned char* data, const int& length, const char* format) override;
    void Save(const TXString& path) const override;
    void Save(const char* path) const override;
    void Fill(const TXRect& rect, const TXColor& color) override;
    void Fill(const TXColor& color) override;
    void Fill(unsigned int value) override;
    TXColor GetPixel(int x, int y) override;
    void SetPixel(int x, int y, const TXColor& color) override;
    int GetByteCount() override;

    /// Tells @p user of every change of the pixels from now on. Users are told in the order in which they were added.
    /// @return false when memory is short; the user then must not use the pixels.
    bool AddUser(PixelUser& user);
    void RemoveUser(PixelUser& user);

    /// Takes the users off the pixels of an image while they change; nothing for an image of another kind. Users hear
    /// of the outermost of nested changes only. No user may be added or removed meanwhile.
    class PixelChange
    {
    public:
        explicit PixelChange(TXImage& image);
        ~PixelChange();
        PixelChange(const PixelChange&) = delete;
        PixelChange& operator=(const PixelChange&) = delete;

    private:
        TXImageQT* image;
    };

private:
    QImage* Image() const;
    /// Deletes the present image and takes the one that @p make returns. False, and absent, when memory is short.
    template <class Make>
    bool Replace(Make make);

    std::vector<PixelUser*> users;
    int changes = 0; // nested ones, of which the users see the outermost
};

} // namespace TZObjects
