#pragma once

#include <functional>
#include <string>

#include <txmap/style/document/MapStyle.h>

namespace txmap
{

/// Where messages go, one line each.
using MessageSink = std::function<void(const std::string&)>;

/// Reads a style. @param lenient draws what it can: problems go to @p warn.
/// @throw Failure with `ExitCode::Data` for a file that is no style, and unless lenient for any problem.
MapStyle ReadStyleFile(const std::string& file, bool lenient, const MessageSink& warn);
/// The same for a style whose text is known. @param file what messages call it.
MapStyle ReadStyleText(const std::string& text, const std::string& file, bool lenient, const MessageSink& warn);

} // namespace txmap
