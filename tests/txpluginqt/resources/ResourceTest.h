#pragma once

#include <QColor>
#include <QStringList>

#include <gtest/gtest.h>
#include <tests/support/TestEngine.h>

/// Fixture of every test of a drawing resource: nothing that happens between the start of a test and the end of the
/// objects that it made may print a message through Qt, and the manager's settings are put back afterwards.
class ResourceTest : public ::testing::Test
{
protected:
    ResourceTest();
    ~ResourceTest() override;

    /// For the few calls in which a library below Qt prints by itself: forgets and returns what was printed so far.
    static QStringList TakeMessages();

private:
    ManagerSettingsGuard settings;
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
