#pragma once

#include <string>
#include <vector>

/// Every name of a file in the labels below holds this.
constexpr char kStranger[] = "stranger";

/// Labels that try to have files of @p folder opened: stranger.png, stranger.css and the pipe stranger.fifo.
std::vector<std::wstring> HostileLabels(const std::string& folder);
