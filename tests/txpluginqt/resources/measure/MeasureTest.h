#pragma once

#include <vector>

#include <tests/support/QuietTest.h>
#include <tests/txpluginqt/text/LabelFont.h>
#include <tests/txpluginqt/text/LabelTexts.h>
#include <tests/txpluginqt/text/Measures.h>

/// A test of a font's measuring. The manager's settings are put back after it.
class MeasureTest : public QuietTest
{
protected:
    /// Whether fonts made from now on can measure as cairo draws.
    static void EnableCairo(bool on) { TZObjects::TXGraphicsEngineManager::instance("")->EnableCairoDrawing(on); }

    /// Faces, sizes, weights, italics, underline and letter spacings of every kind.
    static std::vector<FontChoice> ManyFonts();
    /// Every text that labels are tested with, the long ones as well.
    static std::vector<std::wstring> AllTexts();
};
