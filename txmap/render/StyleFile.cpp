#include <txmap/render/StyleFile.h>

#include <txmap/sources/SourcePath.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

constexpr std::size_t kLargestStyle = std::size_t(256) << 20;

} // namespace

MapStyle ReadStyleFile(const std::string& file, bool lenient, const MessageSink& warn)
{
    return ReadStyleText(ReadSourceFile(file, kLargestStyle), file, lenient, warn);
}

MapStyle ReadStyleText(const std::string& text, const std::string& file, bool lenient, const MessageSink& warn)
{
    StyleReading reading = ReadStyle(text);
    if (reading.problems.empty())
        return std::move(reading.style);
    const std::string first = file + ": " + reading.problems.front().ToString();
    const std::size_t more = reading.problems.size() - 1;
    if (!lenient || (reading.style.layers.empty() && reading.style.sources.empty()))
        throw Failure(ExitCode::Data,
                      first + (more == 0 ? "" : " (and " + std::to_string(more) + " more; see txmap validate)"));
    for (const StyleProblem& problem : reading.problems)
        warn(file + ": " + problem.ToString());
    return std::move(reading.style);
}

} // namespace txmap
