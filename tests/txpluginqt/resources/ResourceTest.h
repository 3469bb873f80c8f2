#pragma once

#include <QColor>
#include <QFont>

#include <gtest/gtest.h>
#include <tests/support/QuietTest.h>

/// A test of a drawing resource.
using ResourceTest = QuietTest;

/// A test of a font that has been created.
class FontTest : public ResourceTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(font);
        font->Create();
        ASSERT_NE(font->GetInternalObject(), nullptr);
    }

    QFont& QtFont() { return *static_cast<QFont*>(font->GetInternalObject()); }

    TZObjects::TXRefPtr<TZObjects::TXFont> font{TestEngine().NewFont()};
};

/// The Qt colour with the same four channels.
QColor SameChannels(const TZObjects::TXColor& color);

/// True when this is the only reference to @p object; the object is destroyed then.
template <class T>
bool DestroyedByLastRelease(TZObjects::TXRefPtr<T> reference)
{
    T* const object = reference.get();
    object->AddRef();
    reference = nullptr;
    return object->Release();
}
