#pragma once
// A thin RAII layer over SQLite: one connection, statements prepared once and reused.
#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace brenvale::rqp::detail {

class SqliteError : public std::runtime_error {
 public:
  SqliteError(int code, const std::string& what) : std::runtime_error(what), code_(code) {}
  int Code() const { return code_; }
  bool Busy() const;

 private:
  int code_;
};

class Statement {
 public:
  Statement(sqlite3* db, std::string_view sql);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  Statement& Bind(int index, std::string_view text);
  Statement& Bind(int index, std::int64_t value);
  Statement& BindNull(int index);
  // Steps once; true while a row is available.
  bool Step();
  // Runs a statement that returns no rows.
  void Run();
  void Reset();

  std::int64_t Int(int col) const;
  std::string_view Text(int col) const;
  bool IsNull(int col) const;

 private:
  sqlite3* db_;
  sqlite3_stmt* stmt_ = nullptr;
};

class Database {
 public:
  // Opens (creating when `create`) the database file; throws SqliteError.
  Database(const std::string& path, bool create);
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  void Exec(const char* sql);
  // The statement for `sql`, prepared on first use, reset and unbound. The connection keeps the
  // statements used most recently (kCachedStatements of them), so a statement stays valid while
  // fewer than that many other texts are prepared.
  Statement& Prepare(std::string_view sql);
  static constexpr std::size_t kCachedStatements = 64;
  std::int64_t LastInsertId() const;
  int Changes() const;
  sqlite3* Handle() const { return db_; }

 private:
  sqlite3* db_ = nullptr;
  using Cached = std::pair<std::string, std::unique_ptr<Statement>>;
  std::list<Cached> recent_;  // most recently used first
  std::unordered_map<std::string_view, std::list<Cached>::iterator> cache_;
};

// A list bound as one parameter where a statement reads it with json_each(?): a JSON array of the
// values.
std::string JsonArray(const std::vector<std::string>& values);
std::string JsonArray(const std::vector<std::int64_t>& values);

// A savepoint released on Commit() and rolled back when left otherwise.
class Savepoint {
 public:
  Savepoint(Database& db, const char* name);
  ~Savepoint();
  void Commit();

 private:
  Database& db_;
  std::string name_;
  bool done_ = false;
};

}  // namespace brenvale::rqp::detail
