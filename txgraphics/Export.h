/// @file
/// Export marker of the library txgraphics, whose other symbols are hidden.
#pragma once

/// Exports a class or function of txgraphics.
#define TXGRAPHICS_API __attribute__((visibility("default")))
