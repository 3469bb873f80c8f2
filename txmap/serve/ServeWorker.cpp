#include <txmap/serve/ServeWorker.h>

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#include <exception>
#include <map>
#include <memory>
#include <utility>

#include <txmap/map/MercatorView.h>
#include <txmap/serve/Frames.h>
#include <txmap/serve/WorkerMessages.h>
#include <txmap/support/Failure.h>
#include <txmap/tiles/TileImage.h>
#include <txmap/tiles/TileRenderer.h>

namespace txmap
{
namespace
{

constexpr int kSocket = STDIN_FILENO;

/// Draws jobs of one style.
class JobPainter
{
public:
    JobPainter(const WorkerLook& workerLook, std::string styleText)
    {
        look.style = workerLook.style;
        look.styleText = std::move(styleText);
        look.plugin = workerLook.plugin;
        look.lenient = workerLook.lenient;
        // Most of what may be wrong with data shows in the first picture, and later ones find the data read.
        Renderer(1).Draw(TileBlock{});
    }

    const std::vector<std::string>& Warnings() const { return warnings; }

    WorkerAnswer Draw(const DrawingJob& job)
    {
        return std::visit([this](const auto& wanted) { return DrawIt(wanted); }, job);
    }

private:
    TileRenderer& Renderer(int scale)
    {
        std::unique_ptr<TileRenderer>& renderer = renderers[scale];
        if (!renderer)
        {
            look.scale = scale;
            renderer =
                std::make_unique<TileRenderer>(look, [this](const std::string& text) { warnings.push_back(text); });
        }
        return *renderer;
    }

    WorkerAnswer DrawIt(const ScaledBlock& job)
    {
        const BlockPixels pixels = Renderer(job.scale).Draw(job.tiles);
        WorkerAnswer answer;
        for (int row = 0; row < pixels.Rows(); ++row)
            for (int column = 0; column < pixels.Columns(); ++column)
                answer.files.push_back(Encode(pixels.Tile(column, row), TileFormat::Png));
        return answer;
    }

    WorkerAnswer DrawIt(const ViewRequest& job)
    {
        const MercatorView view(MercatorView::Fit(job.box, job.size), job.size, job.scale);
        return {{Encode(Renderer(job.scale).DrawPicture(view), TileFormat::Png)}, {}};
    }

    TileLook look;
    std::vector<std::string> warnings;
    std::map<int, std::unique_ptr<TileRenderer>> renderers; ///< By scale: sprites and rasters depend on it.
};

void Send(const std::string& message)
{
    if (SendFrame(kSocket, message, Deadline::max()) != Exchange::Done)
        throw Failure(ExitCode::Drawing, "the server is gone");
}

} // namespace

void ServeJobs(const WorkerLook& look)
{
    // A server that is killed cannot end its workers.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    std::string message;
    if (ReceiveFrame(kSocket, message, Deadline::max()) != Exchange::Done)
        throw Failure(ExitCode::Usage, "serve-worker is started by txmap serve");
    std::unique_ptr<JobPainter> painter;
    try
    {
        painter = std::make_unique<JobPainter>(look, std::move(message));
    }
    catch (const Failure& failure)
    {
        return Send(GreetingText({failure.Code(), failure.what(), {}}));
    }
    catch (const std::exception& error)
    {
        return Send(GreetingText({ExitCode::Drawing, error.what(), {}}));
    }
    Send(GreetingText({ExitCode::Success, {}, painter->Warnings()}));
    while (ReceiveFrame(kSocket, message, Deadline::max()) == Exchange::Done)
    {
        WorkerAnswer answer;
        try
        {
            if (const std::optional<DrawingJob> job = ReadJob(message))
                answer = painter->Draw(*job);
            else
                answer.problem = "this is no job: " + message;
        }
        catch (const std::exception& error)
        {
            answer = {{}, error.what()};
        }
        Send(AnswerText(answer));
    }
}

} // namespace txmap
