#pragma once

#include <string>
#include <vector>

#include "Picture.h"

/// Draws a map with these arguments. The run must leave no message.
Picture Draw(const std::vector<std::string>& arguments);

/// The data of a place with a name, as JSON has it, 40 degrees from the left of the world on the equator.
std::string PlaceNamed(const std::string& json);

/// Draws that place in a picture that has room for it.
Picture DrawPlace(const std::string& json, const std::vector<std::string>& options = {},
                  const std::string& size = "1000x500");

/// Where two pictures differ clearly.
struct Difference
{
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    int pixels = 0;
};

Difference Compare(const Picture& a, const Picture& b);

/// What a label adds to the picture of a place without a name.
Difference InkOf(const std::string& json, const std::vector<std::string>& options = {});

/// Expects a size that differs by no more than @p tolerance, as a part of the expected one.
void ExpectAbout(int actual, int expected, double tolerance, const std::string& what);
