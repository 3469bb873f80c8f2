#pragma once

#include <string>
#include <vector>

#include "Operations.h"

/// What a step that has just left ink drew with, by names of its own: "a radial gradient", "coloured glyphs".
std::vector<std::string> ElementsOf(const Step& step, World& world);

/// All of them.
std::vector<std::string> AllElements();
