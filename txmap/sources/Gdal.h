#pragma once

#include <string>

namespace txmap
{

/// Makes GDAL ready for use, and silent: what it has to say goes into our own messages.
void PrepareGdal();

/// What GDAL complained about last, in brackets, to be put behind a message; empty for nothing.
std::string LastGdalComplaint();

/// True for what a driver of GDAL knows by its first word, as "PG:dbname=world". Paths of one letter and a colon are
/// drives, and addresses have two slashes.
bool IsConnection(const std::string& address);

/// Why a file cannot hold data of any kind, as when there is none; empty when it may.
std::string FileProblem(const std::string& path);

} // namespace txmap
