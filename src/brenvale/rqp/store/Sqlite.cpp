#include "brenvale/rqp/store/Sqlite.hpp"

#include <sqlite3.h>

namespace brenvale::rqp::detail {
namespace {
[[noreturn]] void Fail(sqlite3* db, int rc) {
  throw SqliteError(rc, db ? sqlite3_errmsg(db) : sqlite3_errstr(rc));
}
}  // namespace

bool SqliteError::Busy() const {
  int primary = code_ & 0xFF;
  return primary == SQLITE_BUSY || primary == SQLITE_LOCKED;
}

Statement::Statement(sqlite3* db, std::string_view sql) : db_(db) {
  int rc = sqlite3_prepare_v3(db, sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT,
                              &stmt_, nullptr);
  if (rc != SQLITE_OK) Fail(db, rc);
}

Statement::~Statement() { sqlite3_finalize(stmt_); }

Statement& Statement::Bind(int index, std::string_view text) {
  int rc = sqlite3_bind_text(stmt_, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
  if (rc != SQLITE_OK) Fail(db_, rc);
  return *this;
}

Statement& Statement::Bind(int index, std::int64_t value) {
  int rc = sqlite3_bind_int64(stmt_, index, value);
  if (rc != SQLITE_OK) Fail(db_, rc);
  return *this;
}

Statement& Statement::BindNull(int index) {
  int rc = sqlite3_bind_null(stmt_, index);
  if (rc != SQLITE_OK) Fail(db_, rc);
  return *this;
}

bool Statement::Step() {
  int rc = sqlite3_step(stmt_);
  if (rc == SQLITE_ROW) return true;
  if (rc == SQLITE_DONE) return false;
  sqlite3_reset(stmt_);
  Fail(db_, rc);
}

void Statement::Run() {
  while (Step()) {
  }
  Reset();
}

void Statement::Reset() {
  sqlite3_reset(stmt_);
  sqlite3_clear_bindings(stmt_);
}

std::int64_t Statement::Int(int col) const { return sqlite3_column_int64(stmt_, col); }

std::string_view Statement::Text(int col) const {
  auto p = reinterpret_cast<const char*>(sqlite3_column_text(stmt_, col));
  if (!p) return {};
  return {p, static_cast<std::size_t>(sqlite3_column_bytes(stmt_, col))};
}

bool Statement::IsNull(int col) const { return sqlite3_column_type(stmt_, col) == SQLITE_NULL; }

Database::Database(const std::string& path, bool create) {
  int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | (create ? SQLITE_OPEN_CREATE : 0);
  int rc = sqlite3_open_v2(path.c_str(), &db_, flags, nullptr);
  if (rc != SQLITE_OK) {
    std::string why = db_ ? sqlite3_errmsg(db_) : sqlite3_errstr(rc);
    sqlite3_close(db_);
    db_ = nullptr;
    throw SqliteError(rc, why);
  }
  sqlite3_extended_result_codes(db_, 1);
  sqlite3_busy_timeout(db_, 5000);
}

Database::~Database() {
  cache_.clear();
  recent_.clear();
  sqlite3_close(db_);
}

void Database::Exec(const char* sql) {
  char* err = nullptr;
  int rc = sqlite3_exec(db_, sql, nullptr, nullptr, &err);
  if (rc != SQLITE_OK) {
    std::string why = err ? err : sqlite3_errstr(rc);
    sqlite3_free(err);
    throw SqliteError(rc, why);
  }
}

Statement& Database::Prepare(std::string_view sql) {
  auto it = cache_.find(sql);
  if (it != cache_.end()) {
    recent_.splice(recent_.begin(), recent_, it->second);
  } else {
    auto statement = std::make_unique<Statement>(db_, sql);
    recent_.emplace_front(std::string(sql), std::move(statement));
    cache_.emplace(recent_.front().first, recent_.begin());
    if (recent_.size() > kCachedStatements) {
      cache_.erase(recent_.back().first);
      recent_.pop_back();
    }
  }
  Statement& s = *recent_.front().second;
  s.Reset();
  return s;
}

std::int64_t Database::LastInsertId() const { return sqlite3_last_insert_rowid(db_); }
int Database::Changes() const { return sqlite3_changes(db_); }

std::string JsonArray(const std::vector<std::string>& values) {
  std::string out = "[";
  for (auto& v : values) {
    if (out.size() > 1) out += ',';
    out += '"';
    for (char c : v) {
      if (c == '"' || c == '\\') out += '\\';
      out += c;
    }
    out += '"';
  }
  return out + "]";
}

std::string JsonArray(const std::vector<std::int64_t>& values) {
  std::string out = "[";
  for (auto v : values) out += (out.size() > 1 ? "," : "") + std::to_string(v);
  return out + "]";
}

Savepoint::Savepoint(Database& db, const char* name) : db_(db), name_(name) {
  db_.Exec(("SAVEPOINT " + name_).c_str());
}

Savepoint::~Savepoint() {
  if (done_) return;
  try {
    db_.Exec(("ROLLBACK TO " + name_ + "; RELEASE " + name_).c_str());
  } catch (...) {
  }
}

void Savepoint::Commit() {
  db_.Exec(("RELEASE " + name_).c_str());
  done_ = true;
}

}  // namespace brenvale::rqp::detail
