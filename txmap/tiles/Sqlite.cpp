#include <txmap/tiles/Sqlite.h>

#include <sqlite3.h>

#include <stdexcept>

namespace txmap
{
namespace
{

void Require(int result, sqlite3* database)
{
    if (result != SQLITE_OK)
        throw std::runtime_error(database ? sqlite3_errmsg(database) : sqlite3_errstr(result));
}

} // namespace

void SqlStatement::Closer::operator()(sqlite3_stmt* closed) const { sqlite3_finalize(closed); }
void SqlDatabase::Closer::operator()(sqlite3* closed) const { sqlite3_close(closed); }

SqlStatement::SqlStatement(sqlite3* database, const std::string& text) : database(database)
{
    sqlite3_stmt* made = nullptr;
    const int result = sqlite3_prepare_v2(database, text.c_str(), -1, &made, nullptr);
    statement.reset(made);
    Require(result, database);
}

SqlStatement& SqlStatement::Bind(int number, std::int64_t value)
{
    Require(sqlite3_bind_int64(statement.get(), number, value), database);
    return *this;
}

SqlStatement& SqlStatement::Bind(int number, const std::string& text)
{
    Require(sqlite3_bind_text(statement.get(), number, text.c_str(), -1, SQLITE_TRANSIENT), database);
    return *this;
}

SqlStatement& SqlStatement::BindBytes(int number, const std::string& bytes)
{
    Require(sqlite3_bind_blob64(statement.get(), number, bytes.data(), bytes.size(), SQLITE_TRANSIENT), database);
    return *this;
}

bool SqlStatement::Step()
{
    const int result = sqlite3_step(statement.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE)
    {
        const std::string reason = sqlite3_errmsg(database);
        sqlite3_reset(statement.get());
        throw std::runtime_error(reason);
    }
    return result == SQLITE_ROW;
}

void SqlStatement::Run()
{
    Step();
    Reset();
}

void SqlStatement::Reset() { sqlite3_reset(statement.get()); }

std::int64_t SqlStatement::Integer(int column) const { return sqlite3_column_int64(statement.get(), column); }

std::string SqlStatement::Text(int column) const
{
    const unsigned char* const text = sqlite3_column_text(statement.get(), column);
    return text ? reinterpret_cast<const char*>(text) : "";
}

SqlDatabase::SqlDatabase(const std::string& file, bool writes)
{
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(
        file.c_str(), &opened, writes ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE : SQLITE_OPEN_READONLY, nullptr);
    database.reset(opened);
    Require(result, opened);
}

void SqlDatabase::Run(const std::string& text) const
{
    Require(sqlite3_exec(database.get(), text.c_str(), nullptr, nullptr, nullptr), database.get());
}

} // namespace txmap
