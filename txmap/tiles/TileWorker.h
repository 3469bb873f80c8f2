#pragma once

#include <functional>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

#include <txmap/map/TileView.h>
#include <txmap/tiles/TileRenderer.h>

namespace txmap
{

/// The name of the action of the program in which it is a worker. It is no action for people.
extern const char* const kWorkerAction;

/// Draws blocks that are asked for on standard input and writes their tiles to standard output, until there are no
/// more.
/// @param arguments what `WorkerProcess` gave. @return the exit code.
int RunTileWorker(const std::vector<std::string>& arguments);

/// What a worker says.
struct WorkerMessage
{
    enum class Kind : char
    {
        Tile = 'T',    ///< The bytes of a tile of the block.
        Done = 'D',    ///< All tiles of the block came.
        Failed = 'F',  ///< The block cannot be drawn; the text says why.
        Warning = 'W', ///< Something to tell.
        Useless = 'X'  ///< The worker cannot draw at all; the text says why.
    };

    Kind kind = Kind::Done;
    int x = 0; ///< Of the tile; of one that is useless, the exit code.
    int y = 0;
    std::string text;
};

/// A process that draws blocks of tiles, from the side of the one that starts it. It ends with this object, or with
/// this process.
class WorkerProcess
{
public:
    /// @throw Failure with `ExitCode::Drawing` when there can be no more processes.
    WorkerProcess(const TileLook& look, TileFormat format);
    ~WorkerProcess();
    WorkerProcess(const WorkerProcess&) = delete;
    WorkerProcess& operator=(const WorkerProcess&) = delete;

    /// What to wait on for messages.
    int Descriptor() const { return messages; }
    /// The block that it draws; nothing while it waits for one.
    const std::optional<TileBlock>& Block() const { return block; }
    /// Asks for a block.
    void Draw(const TileBlock& wanted);
    /// Reads what there is, and calls @p take with each message that is complete; waits if there is nothing.
    /// @return false when the worker has ended.
    bool Receive(const std::function<void(const WorkerMessage&)>& take);
    /// How it ended, for people.
    std::string HowItEnded();

private:
    pid_t process = -1;
    int orders = -1;
    int messages = -1;
    std::string received;
    std::optional<TileBlock> block;
};

} // namespace txmap
