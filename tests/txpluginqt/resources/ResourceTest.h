#pragma once

#include <QColor>

#include <gtest/gtest.h>
#include <tests/support/QuietTest.h>

/// A test of a drawing resource.
using ResourceTest = QuietTest;

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
