#include <filesystem>
#include <memory>
#include <sqlite3.h>
#include <string>

#include "peers/peers.h"

namespace bench {
namespace {

const std::string text = "C:\\Program Files\\Some Product\\Its Folder";

/// A table of paths, names and texts in a file of its own: write-ahead log, synchronous NORMAL, prepared
/// statements on one open connection.
class Table {
  public:
    explicit Table(int rows, const std::string& use)
        : file_((std::filesystem::temp_directory_path() /
                 ("tovera-bench-" + use + std::to_string(rows) + ".db"))
                    .string()),
          rows_(static_cast<unsigned>(rows)) {
        remove();
        requireSame(sqlite3_open(file_.c_str(), &base_) == SQLITE_OK, "SQLite");
        run("PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL");
        run("CREATE TABLE registry (path TEXT COLLATE NOCASE, name TEXT COLLATE NOCASE, type INT, data BLOB,"
            "PRIMARY KEY (path, name)) WITHOUT ROWID; BEGIN");
        prepare("SELECT data FROM registry WHERE path=?1 AND name='RepInstall'", &read_);
        prepare("INSERT OR REPLACE INTO registry VALUES (?1, 'RepInstall', 1, ?2)", &write_);
        for (unsigned i = 0; i < rows_; ++i) write(i);
        run("COMMIT");
        requireSame(read(0) == text, "SQLite");
    }
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;
    ~Table() {
        sqlite3_finalize(read_);
        sqlite3_finalize(write_);
        sqlite3_close(base_);
        remove();
    }

    std::string read() { return read(next()); }
    int write() { return write(next()); }

  private:
    void run(const char* sql) {
        requireSame(sqlite3_exec(base_, sql, nullptr, nullptr, nullptr) == SQLITE_OK, sql);
    }
    void prepare(const char* sql, sqlite3_stmt** statement) {
        requireSame(sqlite3_prepare_v2(base_, sql, -1, statement, nullptr) == SQLITE_OK, sql);
    }
    void bindPath(sqlite3_stmt* statement, unsigned i) {
        const auto path = "HKEY_CURRENT_USER\\Software\\Bench\\Product" + std::to_string(i);
        sqlite3_bind_text(statement, 1, path.data(), static_cast<int>(path.size()), SQLITE_TRANSIENT);
    }
    std::string read(unsigned i) {
        bindPath(read_, i);
        std::string data;
        if (sqlite3_step(read_) == SQLITE_ROW) {
            data.assign(static_cast<const char*>(sqlite3_column_blob(read_, 0)),
                        static_cast<std::size_t>(sqlite3_column_bytes(read_, 0)));
        }
        sqlite3_reset(read_);
        return data;
    }
    int write(unsigned i) {
        bindPath(write_, i);
        sqlite3_bind_blob(write_, 2, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
        const int code = sqlite3_step(write_);
        sqlite3_reset(write_);
        return code;
    }
    unsigned next() {
        seed_ = seed_ * 1664525U + 1013904223U;
        return (seed_ >> 8U) % rows_;
    }
    void remove() const {
        for (const auto* end : {"", "-wal", "-shm"}) std::filesystem::remove(file_ + end);
    }

    std::string file_;
    sqlite3* base_ = nullptr;
    sqlite3_stmt* read_ = nullptr;
    sqlite3_stmt* write_ = nullptr;
    unsigned rows_;
    unsigned seed_ = 1;
};

Loop read(int rows) {
    return loopOf([table = std::make_shared<Table>(rows, "read-")] { return table->read(); });
}

Loop write(int rows) {
    return loopOf([table = std::make_shared<Table>(rows, "write-")] { return table->write(); });
}

const Installed installedRead(sqliteRead, read);
const Installed installedWrite(sqliteWrite, write);

}  // namespace
}  // namespace bench
