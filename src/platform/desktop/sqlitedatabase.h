#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

struct sqlite3;
struct sqlite3_stmt;

namespace platform {

/// A statement while it runs. Ends its run when it is destroyed.
class SqliteStatement
{
public:
    explicit SqliteStatement(sqlite3_stmt *statement);
    ~SqliteStatement();
    SqliteStatement(SqliteStatement &&other) noexcept;
    SqliteStatement &operator=(SqliteStatement &&) = delete;
    SqliteStatement(const SqliteStatement &) = delete;
    SqliteStatement &operator=(const SqliteStatement &) = delete;

    /// Bind the next parameter, in order.
    SqliteStatement &operator<<(qint64 number);
    SqliteStatement &operator<<(const QByteArray &bytes);

    /// Runs to the next row; false if there is none or it failed.
    bool next();

    /// Runs to the end; false if it failed.
    bool run();

    bool hasFailed() const;

    qint64 number(int column) const;
    QByteArray bytes(int column) const;
    bool isNull(int column) const;

private:
    sqlite3_stmt *m_statement; ///< owned by the database; null if it could not be prepared
    int m_bound = 0;
    int m_status;
};

/// A SQLite file with a write-ahead log, shared with other processes. A change that is committed outlives its
/// process; only a power cut may undo the latest. One thread at a time.
class SqliteDatabase
{
public:
    SqliteDatabase();
    ~SqliteDatabase();
    SqliteDatabase(const SqliteDatabase &) = delete;
    SqliteDatabase &operator=(const SqliteDatabase &) = delete;

    /// Opens a file or makes it. While another process writes, operations wait, for @p patience at most.
    bool open(const QString &file, std::chrono::milliseconds patience = std::chrono::seconds(10));

    /// What the operation that failed last complained of.
    QString error() const;

    enum class Access { Read, Write };

    /// Carries out @p work in a transaction, which is undone if that returns false. False if it was, or could
    /// not be begun or ended; error() then tells what failed first.
    bool inTransaction(Access access, const std::function<bool()> &work);

    /// The file's absolute path, links followed; beside it stands its log, with "-wal" behind the name.
    QString file() const;

    /// Carries out statements without parameters and results.
    bool execute(const char *statements);

    /// A statement to run; it is kept ready for the next time. @p text must live as long as the database.
    SqliteStatement prepare(const char *text);

    qint64 lastInsertedId() const;
    qint64 changedRows() const;

private:
    class Connection;
    std::unique_ptr<Connection> m_connection;
    QString m_undoneError; ///< of the transaction that was undone, until the next operation
};

} // namespace platform
