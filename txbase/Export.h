/// @file
/// Marks what a shared library of this system exports; everything else in it is hidden.
#pragma once

#define TXBASE_API __attribute__((visibility("default")))
