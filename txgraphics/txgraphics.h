/// @file
/// Includes all of txgraphics, the drawing interfaces and the engine manager, and all of txbase.
#pragma once

#include <txbase/txbase.h>
#include <txgraphics/TXBrush.h>
#include <txgraphics/TXFont.h>
#include <txgraphics/TXGradient.h>
#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXGraphicsEngine.h>
#include <txgraphics/TXGraphicsEngineManager.h>
#include <txgraphics/TXGraphicsState.h>
#include <txgraphics/TXGraphicsTypes.h>
#include <txgraphics/TXImage.h>
#include <txgraphics/TXLinearGradient.h>
#include <txgraphics/TXPen.h>
#include <txgraphics/TXRadialGradient.h>
#include <txgraphics/TXRgn.h>
