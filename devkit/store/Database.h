#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace devkit {

/// The store cannot be opened, read or written; what() is for the log, not for the user.
class StoreError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class Statement;

/// One connection to a SQLite file that other processes use at the same time: writers wait for each
/// other, and readers never wait for a writer.
class Database {
 public:
  explicit Database(const std::string &path);
  ~Database();
  Database(const Database &) = delete;
  Database &operator=(const Database &) = delete;

  /// Runs statements without arguments.
  void execute(const char *sql);
  /// A statement whose arguments are bound by the caller.
  Statement prepare(const char *sql);

 private:
  sqlite3 *handle_ = nullptr;
};

/// One statement with its arguments. Arguments are bound in order of the calls.
class Statement {
 public:
  Statement(sqlite3 *database, const char *sql);
  ~Statement();
  Statement(const Statement &) = delete;
  Statement &operator=(const Statement &) = delete;

  Statement &text(std::string_view value);
  /// For bytes that need not be text, such as paths.
  Statement &bytes(std::string_view value);
  Statement &number(std::int64_t value);

  /// Goes to the next row; false when there is none.
  bool step();
  /// Runs to the end and makes the statement ready for other arguments.
  void run();

  /// A column of the current row, whether text or bytes.
  std::string textAt(int column) const;
  std::int64_t numberAt(int column) const;

 private:
  void check(int code) const;

  sqlite3 *database_;
  sqlite3_stmt *statement_ = nullptr;
  int bound_ = 0;
};

/// A transaction from its construction to commit(), rolled back without that. Takes the write lock
/// at once, so that it never fails half way because another process began to write.
class Transaction {
 public:
  explicit Transaction(Database &database) : database_(database) {
    database_.execute("BEGIN IMMEDIATE");
  }
  ~Transaction();
  Transaction(const Transaction &) = delete;
  Transaction &operator=(const Transaction &) = delete;

  void commit() {
    database_.execute("COMMIT");
    open_ = false;
  }

 private:
  Database &database_;
  bool open_ = true;
};

}  // namespace devkit
