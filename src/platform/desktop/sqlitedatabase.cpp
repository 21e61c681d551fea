#include "platform/desktop/sqlitedatabase.h"

#include <QtCore/QFile>

#include <chrono>
#include <map>
#include <sqlite3.h>
#include <thread>

namespace platform {

namespace {

using Clock = std::chrono::steady_clock;

// SQLite's own waiting grows to 100 ms a turn, in which a writer that never rests gets in first again and
// again.
constexpr std::chrono::microseconds turn(500);

struct StatementCloser
{
    void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
};

} // namespace

class SqliteDatabase::Connection
{
public:
    ~Connection()
    {
        m_statements.clear();
        sqlite3_close(m_handle);
    }

    bool open(const QString &file, std::chrono::milliseconds patience)
    {
        m_patience = patience;
        if (sqlite3_open_v2(QFile::encodeName(file).constData(), &m_handle,
                            SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr)
            != SQLITE_OK)
            return false;
        sqlite3_busy_handler(m_handle, waitForOthers, this);
        return switchToLog();
    }

    sqlite3 *handle() const { return m_handle; }

    sqlite3_stmt *prepare(const char *text)
    {
        auto &statement = m_statements[text];
        if (!statement) {
            sqlite3_stmt *prepared = nullptr;
            sqlite3_prepare_v2(m_handle, text, -1, &prepared, nullptr);
            statement.reset(prepared);
        }
        return statement.get();
    }

private:
    // That needs the file alone for a moment, and SQLite does not wait for it.
    bool switchToLog()
    {
        constexpr std::chrono::milliseconds pause(20);
        const Clock::time_point end = Clock::now() + m_patience;
        while (sqlite3_exec(m_handle, "PRAGMA synchronous = NORMAL; PRAGMA journal_mode = WAL", nullptr,
                            nullptr, nullptr)
               != SQLITE_OK) {
            if (sqlite3_errcode(m_handle) != SQLITE_BUSY || Clock::now() >= end)
                return false;
            std::this_thread::sleep_for(pause);
        }
        return true;
    }

    static int waitForOthers(void *self, int turns)
    {
        auto *connection = static_cast<Connection *>(self);
        if (turns == 0)
            connection->m_waitingSince = Clock::now();
        if (Clock::now() - connection->m_waitingSince > connection->m_patience)
            return 0;
        std::this_thread::sleep_for(turn);
        return 1;
    }

    sqlite3 *m_handle = nullptr;
    std::chrono::milliseconds m_patience{};
    Clock::time_point m_waitingSince;
    std::map<const char *, std::unique_ptr<sqlite3_stmt, StatementCloser>> m_statements;
};

SqliteStatement::SqliteStatement(sqlite3_stmt *statement)
    : m_statement(statement)
    , m_status(statement ? SQLITE_OK : SQLITE_ERROR)
{
}

SqliteStatement::SqliteStatement(SqliteStatement &&other) noexcept
    : m_statement(std::exchange(other.m_statement, nullptr))
    , m_bound(other.m_bound)
    , m_status(other.m_status)
{
}

SqliteStatement::~SqliteStatement()
{
    if (!m_statement)
        return;
    sqlite3_reset(m_statement);
    sqlite3_clear_bindings(m_statement);
}

SqliteStatement &SqliteStatement::operator<<(qint64 number)
{
    if (m_status == SQLITE_OK)
        m_status = sqlite3_bind_int64(m_statement, ++m_bound, number);
    return *this;
}

SqliteStatement &SqliteStatement::operator<<(const QByteArray &bytes)
{
    // Never a null pointer, which SQLite would take for no value at all.
    if (m_status == SQLITE_OK)
        m_status = sqlite3_bind_blob64(m_statement, ++m_bound, bytes.constData(),
                                       static_cast<sqlite3_uint64>(bytes.size()), SQLITE_TRANSIENT);
    return *this;
}

bool SqliteStatement::next()
{
    if (m_status == SQLITE_OK || m_status == SQLITE_ROW)
        m_status = sqlite3_step(m_statement);
    return m_status == SQLITE_ROW;
}

bool SqliteStatement::run()
{
    while (next()) { }
    return m_status == SQLITE_DONE;
}

bool SqliteStatement::hasFailed() const
{
    return m_status != SQLITE_OK && m_status != SQLITE_ROW && m_status != SQLITE_DONE;
}

qint64 SqliteStatement::number(int column) const
{
    return sqlite3_column_int64(m_statement, column);
}

QByteArray SqliteStatement::bytes(int column) const
{
    const auto *data = static_cast<const char *>(sqlite3_column_blob(m_statement, column));
    return data ? QByteArray(data, sqlite3_column_bytes(m_statement, column)) : QByteArray("");
}

bool SqliteStatement::isNull(int column) const
{
    return sqlite3_column_type(m_statement, column) == SQLITE_NULL;
}

SqliteDatabase::SqliteDatabase() = default;

SqliteDatabase::~SqliteDatabase() = default;

bool SqliteDatabase::open(const QString &file, std::chrono::milliseconds patience)
{
    m_connection = std::make_unique<Connection>();
    m_undoneError.clear();
    return m_connection->open(file, patience);
}

QString SqliteDatabase::error() const
{
    if (!m_connection || !m_undoneError.isEmpty())
        return m_undoneError;
    return QString::fromUtf8(sqlite3_errmsg(m_connection->handle()));
}

bool SqliteDatabase::inTransaction(Access access, const std::function<bool()> &work)
{
    if (!execute(access == Access::Write ? "BEGIN IMMEDIATE" : "BEGIN"))
        return false;
    if (work() && execute("COMMIT"))
        return true;
    const QString problem = error();
    execute("ROLLBACK");
    m_undoneError = problem;
    return false;
}

QString SqliteDatabase::file() const
{
    return QFile::decodeName(sqlite3_db_filename(m_connection->handle(), "main"));
}

bool SqliteDatabase::execute(const char *statements)
{
    m_undoneError.clear();
    return sqlite3_exec(m_connection->handle(), statements, nullptr, nullptr, nullptr) == SQLITE_OK;
}

SqliteStatement SqliteDatabase::prepare(const char *text)
{
    m_undoneError.clear();
    return SqliteStatement(m_connection->prepare(text));
}

qint64 SqliteDatabase::lastInsertedId() const
{
    return sqlite3_last_insert_rowid(m_connection->handle());
}

qint64 SqliteDatabase::changedRows() const
{
    return sqlite3_changes(m_connection->handle());
}

} // namespace platform
