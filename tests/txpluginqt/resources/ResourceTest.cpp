#include "ResourceTest.h"

using namespace TZObjects;

QColor SameChannels(const TXColor& color) { return QColor(color.getR(), color.getG(), color.getB(), color.getA()); }
