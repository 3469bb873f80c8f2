#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include "TemporaryFolder.h"

/// The file of a style that the project comes with.
std::string OwnStyleFile(const std::string& name);

/// That style on a handful of features, so that a map of it takes no time. Its heights are to be in heights.tif.
nlohmann::ordered_json OwnStyleOnSmallSources(const std::string& name);

/// Writes heights.tif.
void WriteSmallHeights(const TemporaryFolder& folder);
