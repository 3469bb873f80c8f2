/// @file
/// Includes all of txbase: the value types that host and backends share.
#pragma once

#include <txbase/TXColor.h>
#include <txbase/TXLock.h>
#include <txbase/TXMathUtil.h>
#include <txbase/TXPlugin.h>
#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>
#include <txbase/TXRefBase.h>
#include <txbase/TXRefPtr.h>
#include <txbase/TXString.h>
