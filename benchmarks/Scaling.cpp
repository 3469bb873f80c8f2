// Several threads or processes, each with a surface of its own.
#include <atomic>
#include <cstdio>
#include <iostream>
#include <thread>

#include <unistd.h>

#include "Canvas.h"
#include "CpuTime.h"
#include "Extras.h"
#include "NaiveLabels.h"
#include "Random.h"
#include "Results.h"

using namespace TZObjects;

namespace
{

constexpr int kShapes = 2000;
constexpr int kLabels = 400;
constexpr int kRounds = 3;

/// A picture of polygons and labels.
struct Picture
{
    std::vector<Line> shapes;
    std::vector<Name> names = Names(kLabels, 3);
    std::vector<TXPoint> places;

    Picture()
    {
        Random random(7);
        for (int i = 0; i < kShapes; ++i)
        {
            const TXPoint centre = random.Point(20, 1024);
            shapes.emplace_back();
            for (int k = 0; k < 20; ++k)
                shapes.back().Add(TXPoint(centre.x + random.Real(-15, 15), centre.y + random.Real(-15, 15)));
        }
        for (int i = 0; i < kLabels; ++i)
            places.push_back(random.Point(0, 930));
    }
};

struct Work
{
    double cpu = 0.0;
    double wall = 0.0;
};

class Worker
{
public:
    explicit Worker(bool direct) : direct(direct), font(DirectFont(look))
    {
        canvas.Surface().SelectFont(MakeFont(look));
        DrawOnce();
    }

    Work Draw(int pictures)
    {
        const double cpu = CpuSeconds();
        const double wall = WallSeconds();
        for (int i = 0; i < pictures; ++i)
            DrawOnce();
        return {CpuSeconds() - cpu, WallSeconds() - wall};
    }

private:
    void DrawOnce()
    {
        for (const Line& shape : picture.shapes)
            if (direct)
                canvas.Direct().drawPolygon(shape.polygon);
            else
                canvas.Surface().Polygon(shape.points.data(), shape.Count());
        for (int i = 0; i < kLabels; ++i)
        {
            const TXPoint& p = picture.places[static_cast<std::size_t>(i)];
            const Name& name = picture.names[static_cast<std::size_t>(i)];
            if (direct)
                DrawHaloLabel(canvas.Direct(), font, look, QPointF(p.x, p.y), name.direct);
            else
                canvas.Surface().DrawOutlineString(p.x, p.y, p.x, p.y, TXGraphics::TextAlignTop,
                                                   TXGraphics::TextAlignLeft, name.text, look.fill, 0.0, 0.0, 1.0);
        }
    }

    bool direct;
    Picture picture;
    Canvas canvas;
    LabelLook look;
    QFont font;
};

Scaling Sum(const std::string& name, const std::vector<Work>& all, int pictures)
{
    Scaling scaling;
    scaling.workers = name;
    for (const Work& work : all)
    {
        scaling.picturesPerSecond += pictures / work.wall;
        scaling.cpuPerPicture += work.cpu / pictures / static_cast<double>(all.size());
    }
    return scaling;
}

std::vector<Work> InThreads(int count, bool direct, int pictures)
{
    std::vector<Work> all(static_cast<std::size_t>(count));
    std::atomic<int> ready{0};
    std::vector<std::thread> threads;
    for (Work& work : all)
        threads.emplace_back(
            [&]
            {
                Worker worker(direct);
                ++ready;
                while (ready < count)
                    std::this_thread::yield();
                work = worker.Draw(pictures);
            });
    for (std::thread& thread : threads)
        thread.join();
    return all;
}

std::vector<Work> InProcesses(int count, bool direct, int pictures)
{
    const std::string command = std::string("/proc/") + std::to_string(getpid()) +
                                "/exe --worker=" + (direct ? "direct" : "ours") +
                                " --pictures=" + std::to_string(pictures);
    std::vector<FILE*> children;
    for (int i = 0; i < count; ++i)
        children.push_back(popen(command.c_str(), "r"));
    std::vector<Work> all;
    for (FILE* const child : children)
    {
        Work work;
        if (!child || std::fscanf(child, "%lf %lf", &work.cpu, &work.wall) != 2)
            std::cerr << "a worker failed" << std::endl;
        if (child)
            pclose(child);
        all.push_back(work);
    }
    return all;
}

using Run = std::vector<Work> (*)(int count, bool direct, int pictures);

/// The medians of some rounds.
Scaling Rounds(const std::string& name, Run run, int count, bool direct, int pictures)
{
    std::vector<double> speeds;
    std::vector<double> costs;
    for (int i = 0; i < kRounds; ++i)
    {
        const Scaling one = Sum(name, run(count, direct, pictures), pictures);
        speeds.push_back(one.picturesPerSecond);
        costs.push_back(one.cpuPerPicture);
    }
    return {name, Median(speeds), Median(costs)};
}

} // namespace

std::vector<Scaling> MeasureScaling(int pictures)
{
    Engine();
    std::vector<Scaling> rows;
    for (const bool direct : {false, true})
    {
        const std::string who = direct ? "direct, " : "ours, ";
        rows.push_back(Rounds(who + "1 thread", InThreads, 1, direct, pictures));
        rows.push_back(Rounds(who + "2 threads", InThreads, 2, direct, pictures));
        rows.push_back(Rounds(who + "1 process", InProcesses, 1, direct, pictures));
        rows.push_back(Rounds(who + "2 processes", InProcesses, 2, direct, pictures));
    }
    return rows;
}

int RunAsWorker(bool direct, int pictures)
{
    Worker worker(direct);
    const Work work = worker.Draw(pictures);
    std::printf("%.9f %.9f\n", work.cpu, work.wall);
    return 0;
}
