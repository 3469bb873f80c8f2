#include <txmap/sources/SourceDiagnostics.h>

#include <algorithm>

#include <txmap/support/Failure.h>

namespace txmap
{

void SourceDiagnostics::Report(const std::string& problem)
{
    if (strict)
        throw Failure(ExitCode::Data, problem);
    Warn(problem);
}

void SourceDiagnostics::Warn(const std::string& notice)
{
    if (std::find(warnings.begin(), warnings.end(), notice) == warnings.end())
        warnings.push_back(notice);
}

} // namespace txmap
