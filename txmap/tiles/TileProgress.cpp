#include <txmap/tiles/TileProgress.h>

#include <unistd.h>

#include <cstdio>
#include <string>

namespace txmap
{
namespace
{

constexpr auto kOnTerminal = std::chrono::milliseconds(200);
constexpr auto kElsewhere = std::chrono::seconds(15);
constexpr int kBarWidth = 24;

std::string TimeText(double seconds)
{
    const auto whole = static_cast<long>(seconds + 0.5);
    char text[48];
    if (whole >= 3600)
        std::snprintf(text, sizeof text, "%ld:%02ld:%02ld", whole / 3600, whole / 60 % 60, whole % 60);
    else
        std::snprintf(text, sizeof text, "%ld:%02ld", whole / 60, whole % 60);
    return text;
}

} // namespace

TileProgress::TileProgress(std::uint64_t total, bool quiet)
    : total(total), quiet(quiet), isTerminal(isatty(STDERR_FILENO) == 1), start(Clock::now()), last(start)
{
}

void TileProgress::Add(std::uint64_t tiles, bool areDrawn)
{
    done += tiles;
    drawn += areDrawn ? tiles : 0;
}

void TileProgress::Tell()
{
    const Clock::time_point now = Clock::now();
    if (quiet || now - last < (isTerminal ? Clock::duration(kOnTerminal) : Clock::duration(kElsewhere)))
        return;
    last = now;
    const double seconds = std::chrono::duration<double>(now - start).count();
    const double rate = static_cast<double>(drawn) / seconds;
    std::string text = std::to_string(done) + " of " + std::to_string(total) + " tiles";
    if (rate > 0.0)
    {
        char speed[32];
        std::snprintf(speed, sizeof speed, ", %.1f/s, ", rate);
        text += speed + TimeText(static_cast<double>(total - done) / rate) + " left";
    }
    if (!isTerminal)
    {
        std::fprintf(stderr, "%s\n", text.c_str());
        return;
    }
    const auto filled = static_cast<std::size_t>(static_cast<double>(done) / static_cast<double>(total) * kBarWidth);
    const std::string bar = std::string(filled, '#') + std::string(kBarWidth - filled, '.');
    std::fprintf(stderr, "\r\033[K[%s] %s", bar.c_str(), text.c_str());
}

void TileProgress::Clear() const
{
    if (isTerminal && !quiet)
        std::fputs("\r\033[K", stderr);
}

void TileProgress::Finish(std::uint64_t failed)
{
    Clear();
    if (quiet)
        return;
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    std::fprintf(stderr, "%llu tiles drawn in %s, %llu were there, %llu failed\n",
                 static_cast<unsigned long long>(drawn), TimeText(seconds).c_str(),
                 static_cast<unsigned long long>(done - drawn - failed), static_cast<unsigned long long>(failed));
}

} // namespace txmap
