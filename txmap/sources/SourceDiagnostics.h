#pragma once

#include <string>
#include <vector>

namespace txmap
{

/// Where sources report data that is broken but can be left out: a tile, a feature, a picture. A strict map ends there;
/// a lenient one goes on and says so once.
class SourceDiagnostics
{
public:
    explicit SourceDiagnostics(bool strict) : strict(strict) {}

    /// Takes one line that names the data at fault. The same line counts once. @throw Failure with `ExitCode::Data` if
    /// strict.
    void Report(const std::string& problem);
    /// Takes one line that is good to know and no fault: a warning for strict maps as well.
    void Warn(const std::string& notice);
    /// What was reported, in order.
    const std::vector<std::string>& Warnings() const { return warnings; }

private:
    bool strict;
    std::vector<std::string> warnings;
};

} // namespace txmap
