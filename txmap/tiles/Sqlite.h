#pragma once

#include <cstdint>
#include <memory>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

namespace txmap
{

/// An SQL statement that is run again and again.
class SqlStatement
{
public:
    SqlStatement() = default;
    SqlStatement(sqlite3* database, const std::string& text);

    SqlStatement& Bind(int number, std::int64_t value);
    SqlStatement& Bind(int number, const std::string& text);
    SqlStatement& BindBytes(int number, const std::string& bytes);
    /// True when there is a row. @throw std::runtime_error with the reason.
    bool Step();
    /// Runs it for its effect, ready to be bound anew.
    void Run();
    void Reset();
    std::int64_t Integer(int column) const;
    std::string Text(int column) const;

private:
    struct Closer
    {
        void operator()(sqlite3_stmt* statement) const;
    };

    sqlite3* database = nullptr;
    std::unique_ptr<sqlite3_stmt, Closer> statement;
};

/// An open database. All operations throw std::runtime_error with the reason.
class SqlDatabase
{
public:
    /// @param writes makes the file if there is none.
    SqlDatabase(const std::string& file, bool writes);

    SqlStatement Prepare(const std::string& text) const { return {database.get(), text}; }
    void Run(const std::string& text) const;

private:
    struct Closer
    {
        void operator()(sqlite3* database) const;
    };

    std::unique_ptr<sqlite3, Closer> database;
};

} // namespace txmap
