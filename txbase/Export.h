/// @file
/// Export marker of the library txbase, whose other symbols are hidden.
#pragma once

/// Exports a class or function of txbase.
#define TXBASE_API __attribute__((visibility("default")))
