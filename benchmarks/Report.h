#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "Extras.h"
#include "Results.h"
#include "Scene.h"

/// A program of others that draws the same map.
struct Peer
{
    std::string name;
    std::string drawing; ///< In milliseconds.
    std::string note;
};

struct Report
{
    const Scenes* scenes = nullptr;
    const std::map<std::string, Times>* times = nullptr;
    int repetitions = 0;
    bool quick = false;
    MapCosts map;
    LabelMemory memory;
    std::vector<Scaling> scaling;
    std::vector<Peer> peers;
    std::vector<Peer> styled; ///< Who draws countries from a style; the note is what reading takes.

    /// Writes it as Markdown.
    void Write(std::ostream& out) const;
    /// Writes a line for each limit that is broken and each scene whose pictures differ. @return how many there are.
    int WriteFailures(std::ostream& out) const;

private:
    void WriteScenes(std::ostream& out) const;
    void WriteOthers(std::ostream& out) const;
};
