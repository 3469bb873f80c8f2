#pragma once

#include <string>
#include <vector>

/// Texts of labels of every kind: plain and tagged, of one line and of several, empty ones, of several scripts, and
/// such as no text should be. None is long.
const std::vector<std::wstring>& LabelTexts();

/// 5,000 characters in one line, or in lines of 100.
std::wstring LongText(bool inLines);
