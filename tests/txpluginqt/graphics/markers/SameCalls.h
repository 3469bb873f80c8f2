#pragma once

#include <functional>

#include <QPainter>

#include <gtest/gtest.h>
#include <txgraphics/txgraphics.h>

/// Success when the surface, attached to a painter on a recorder, answers true and makes the same calls there as are
/// made directly on another, and both painters end in the same state. @p change is made to both painters before.
::testing::AssertionResult SameCalls(TZObjects::TXGraphics& surface, const std::function<void(QPainter&)>& change,
                                     const std::function<bool()>& draw,
                                     const std::function<void(QPainter&)>& drawDirectly);
