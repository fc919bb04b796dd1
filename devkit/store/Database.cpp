#include "devkit/store/Database.h"

#include <sqlite3.h>

#include <chrono>

namespace devkit {
namespace {

/// Longer than any transaction of the kit, filling in a million contacts included.
constexpr int kBusyMilliseconds = 20'000;

[[noreturn]] void fail(sqlite3 *database, const char *what) {
  throw StoreError(std::string(what) + ": " + sqlite3_errmsg(database));
}

/// Has changes written to a journal first, so that reading waits for no writing. SQLite refuses
/// this at once to all but one of the processes that meet a new store, because each would wait for
/// the others; the refused ones try again.
void keepJournal(sqlite3 *database) {
  using std::chrono::steady_clock;
  constexpr int kBetweenTriesMilliseconds = 10;
  const char *const sql = "PRAGMA journal_mode = WAL";
  const auto end = steady_clock::now() + std::chrono::milliseconds(kBusyMilliseconds);
  for (;;) {
    const int code = sqlite3_exec(database, sql, nullptr, nullptr, nullptr);
    if (code == SQLITE_OK) return;
    if (code != SQLITE_BUSY || steady_clock::now() > end) fail(database, sql);
    sqlite3_sleep(kBetweenTriesMilliseconds);
  }
}

}  // namespace

Database::Database(const std::string &path) {
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_FULLMUTEX;
  if (sqlite3_open_v2(path.c_str(), &handle_, flags, nullptr) != SQLITE_OK) {
    const std::string reason = handle_ ? sqlite3_errmsg(handle_) : "out of memory";
    sqlite3_close(handle_);
    throw StoreError(path + ": " + reason);
  }
  sqlite3_busy_timeout(handle_, kBusyMilliseconds);
  try {
    keepJournal(handle_);
    execute("PRAGMA synchronous = NORMAL");
  } catch (...) {
    sqlite3_close(handle_);
    throw;
  }
  // The engine opens and closes the store around each query; without this the last one to close
  // would delete the journal each time and the next one make it again.
  int keep = 1;
  sqlite3_file_control(handle_, "main", SQLITE_FCNTL_PERSIST_WAL, &keep);
}

Database::~Database() {
  sqlite3_close(handle_);
}

void Database::execute(const char *sql) {
  if (sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr) != SQLITE_OK) fail(handle_, sql);
}

Statement Database::prepare(const char *sql) {
  return Statement(handle_, sql);
}

Statement::Statement(sqlite3 *database, const char *sql) : database_(database) {
  check(sqlite3_prepare_v2(database_, sql, -1, &statement_, nullptr));
}

Statement::~Statement() {
  sqlite3_finalize(statement_);
}

Statement &Statement::text(std::string_view value) {
  // An empty view may hold a null pointer, which SQLite would take for NULL.
  const char *data = value.empty() ? "" : value.data();
  check(
      sqlite3_bind_text64(statement_, ++bound_, data, value.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
  return *this;
}

Statement &Statement::bytes(std::string_view value) {
  const char *data = value.empty() ? "" : value.data();
  check(sqlite3_bind_blob64(statement_, ++bound_, data, value.size(), SQLITE_TRANSIENT));
  return *this;
}

Statement &Statement::number(std::int64_t value) {
  check(sqlite3_bind_int64(statement_, ++bound_, value));
  return *this;
}

bool Statement::step() {
  const int code = sqlite3_step(statement_);
  if (code != SQLITE_ROW && code != SQLITE_DONE) fail(database_, sqlite3_sql(statement_));
  return code == SQLITE_ROW;
}

void Statement::run() {
  while (step()) {
  }
  check(sqlite3_reset(statement_));
  bound_ = 0;
}

std::string Statement::textAt(int column) const {
  const void *data = sqlite3_column_blob(statement_, column);
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_, column));
  return data ? std::string(static_cast<const char *>(data), size) : std::string();
}

std::int64_t Statement::numberAt(int column) const {
  return sqlite3_column_int64(statement_, column);
}

void Statement::check(int code) const {
  if (code != SQLITE_OK) fail(database_, "statement");
}

Transaction::~Transaction() {
  if (!open_) return;
  try {
    database_.execute("ROLLBACK");
  } catch (const StoreError &) {
    // SQLite has rolled back already.
  }
}

}  // namespace devkit
