#pragma once

#include <map>
#include <memory>
#include <string>

#include <txmap/sources/TileStore.h>

struct sqlite3;
struct sqlite3_stmt;

namespace txmap
{

/// Tiles in a database of the MBTiles format. Nothing in the database is trusted: neither sizes nor the work that its
/// tables take.
class MbTiles final : public TileStore
{
public:
    /// Opens a database for reading. @throw Failure with `ExitCode::Data` if it is none.
    explicit MbTiles(const std::string& file);
    ~MbTiles() override;

    std::optional<std::string> Read(const TileId& tile) override;
    std::string NameOf(const TileId& tile) const override;

    /// What the database says about itself.
    const std::map<std::string, std::string>& Metadata() const { return metadata; }

private:
    struct Closer
    {
        void operator()(sqlite3* database) const;
        void operator()(sqlite3_stmt* statement) const;
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Closer>;

    Statement Prepare(const char* query) const;
    void ReadMetadata();
    std::string Complaint() const;
    static int CountSteps(void* self);

    std::string file;
    int steps = 0; ///< How often the database asked whether the query in hand may go on.
    bool givenUp = false;
    std::unique_ptr<sqlite3, Closer> database;
    Statement query;
    std::map<std::string, std::string> metadata;
};

} // namespace txmap
