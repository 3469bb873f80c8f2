#include <txmap/sources/SourceDiagnostics.h>

#include <algorithm>

#include <txmap/support/Failure.h>

namespace txmap
{

void SourceDiagnostics::Report(const std::string& problem)
{
    if (strict)
        throw Failure(ExitCode::Data, problem);
    if (std::find(warnings.begin(), warnings.end(), problem) == warnings.end())
        warnings.push_back(problem);
}

} // namespace txmap
