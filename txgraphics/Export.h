/// @file
/// Marks what the graphics library exports; everything else in it is hidden.
#pragma once

#define TXGRAPHICS_API __attribute__((visibility("default")))
