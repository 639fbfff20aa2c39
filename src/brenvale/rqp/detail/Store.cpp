#include "brenvale/rqp/detail/Store.hpp"

#include <filesystem>

namespace brenvale::rqp::detail {
namespace {

constexpr const char* kFormat = "brenvale-company-1";

constexpr const char* kTables = R"SQL(
CREATE TABLE meta (key TEXT PRIMARY KEY, value TEXT NOT NULL);
CREATE TABLE records (
  id INTEGER PRIMARY KEY AUTOINCREMENT,  -- never reused: open iterators hold ids
  list_id TEXT NOT NULL UNIQUE,
  kind INTEGER NOT NULL,
  name_group INTEGER NOT NULL,
  full_name TEXT NOT NULL,
  name_key TEXT NOT NULL,
  parent_id TEXT NOT NULL DEFAULT '',
  sublevel INTEGER NOT NULL DEFAULT 0,
  is_active INTEGER NOT NULL,
  time_created INTEGER NOT NULL,
  time_modified INTEGER NOT NULL,
  edit_sequence TEXT NOT NULL,
  sort_group INTEGER NOT NULL DEFAULT 0,
  balance INTEGER NOT NULL DEFAULT 0,
  ret TEXT NOT NULL);
CREATE UNIQUE INDEX records_unique_name ON records (name_group, name_key) WHERE name_key <> '';
CREATE INDEX records_by_kind_name ON records (kind, sort_group, name_key, id, is_active);
CREATE INDEX records_by_kind_modified ON records (kind, time_modified);
CREATE INDEX records_by_parent ON records (parent_id) WHERE parent_id <> '';
CREATE TABLE refs (source TEXT NOT NULL, target TEXT NOT NULL);
CREATE INDEX refs_by_source ON refs (source);
CREATE INDEX refs_by_target ON refs (target);
CREATE TABLE deleted (
  id INTEGER PRIMARY KEY,
  kind INTEGER NOT NULL,
  del_type TEXT NOT NULL,
  list_id TEXT NOT NULL,
  full_name TEXT NOT NULL,
  time_created INTEGER NOT NULL,
  time_deleted INTEGER NOT NULL);
CREATE INDEX deleted_by_type ON deleted (del_type, time_deleted);
CREATE TABLE data_ext_defs (
  owner_id TEXT NOT NULL,
  name_key TEXT NOT NULL,
  data_ext_id INTEGER NOT NULL,
  ret TEXT NOT NULL,
  PRIMARY KEY (owner_id, name_key));
CREATE TABLE data_ext_values (
  owner_id TEXT NOT NULL,
  name_key TEXT NOT NULL,
  object_id TEXT NOT NULL,
  value TEXT NOT NULL,
  PRIMARY KEY (object_id, owner_id, name_key));
)SQL";

}  // namespace

Store::Store(const std::string& path)
    : created_(!std::filesystem::exists(path)), db_(path, true) {
  if (created_) {
    db_.Exec("PRAGMA journal_mode=WAL");
    db_.Exec("BEGIN");
    db_.Exec(kTables);
    SetMeta("format", kFormat);
    db_.Exec("COMMIT");
  } else {
    auto format = [&]() -> std::optional<std::string> {
      auto& s = db_.Prepare("SELECT count(*) FROM sqlite_master WHERE type='table' AND name='meta'");
      bool hasMeta = s.Step() && s.Int(0) > 0;
      s.Reset();
      if (!hasMeta) return std::nullopt;
      return Meta("format");
    }();
    if (format != kFormat) throw SqliteError(26 /* SQLITE_NOTADB */, "not a company file");
    db_.Exec("PRAGMA journal_mode=WAL");
  }
  db_.Exec("PRAGMA synchronous=NORMAL");
}

std::optional<std::string> Store::Meta(std::string_view key) {
  auto& s = db_.Prepare("SELECT value FROM meta WHERE key=?");
  s.Bind(1, key);
  std::optional<std::string> out;
  if (s.Step()) out = std::string(s.Text(0));
  s.Reset();
  return out;
}

void Store::SetMeta(std::string_view key, std::string_view value) {
  db_.Prepare("INSERT INTO meta(key, value) VALUES(?, ?) ON CONFLICT(key) DO UPDATE SET value=excluded.value")
      .Bind(1, key)
      .Bind(2, value)
      .Run();
}

std::int64_t Store::NextNumber(std::string_view counter) {
  std::string key = "counter." + std::string(counter);
  auto current = Meta(key);
  std::int64_t next = current ? std::stoll(*current) + 1 : 1;
  SetMeta(key, std::to_string(next));
  return next;
}

Record Store::Read(const Statement& s) {
  Record r;
  r.rowId = s.Int(0);
  r.listId = s.Text(1);
  r.kind = static_cast<int>(s.Int(2));
  r.nameGroup = static_cast<int>(s.Int(3));
  r.fullName = s.Text(4);
  r.nameKey = s.Text(5);
  r.parentId = s.Text(6);
  r.sublevel = static_cast<int>(s.Int(7));
  r.active = s.Int(8) != 0;
  r.timeCreated = s.Int(9);
  r.timeModified = s.Int(10);
  r.editSequence = s.Text(11);
  r.sortGroup = static_cast<int>(s.Int(12));
  r.balance = s.Int(13);
  r.ret = s.Text(14);
  return r;
}

namespace {
std::optional<Record> One(Statement& s) {
  std::optional<Record> out;
  if (s.Step()) out = Store::Read(s);
  s.Reset();
  return out;
}
}  // namespace

std::optional<Record> Store::ById(std::string_view listId) {
  auto& s = db_.Prepare(std::string("SELECT ") + kRecordColumns + " FROM records WHERE list_id=?");
  s.Bind(1, listId);
  return One(s);
}

std::optional<Record> Store::ByRowId(std::int64_t rowId) {
  auto& s = db_.Prepare(std::string("SELECT ") + kRecordColumns + " FROM records WHERE id=?");
  s.Bind(1, rowId);
  return One(s);
}

std::optional<Record> Store::ByName(int nameGroup, std::string_view nameKey) {
  auto& s = db_.Prepare(std::string("SELECT ") + kRecordColumns +
                        " FROM records WHERE name_group=? AND name_key=? AND name_key<>''");
  s.Bind(1, nameGroup).Bind(2, nameKey);
  return One(s);
}

std::vector<Record> Store::Children(std::string_view parentId) {
  auto& s = db_.Prepare(std::string("SELECT ") + kRecordColumns +
                        " FROM records WHERE parent_id=? AND parent_id<>'' ORDER BY name_key");
  s.Bind(1, parentId);
  std::vector<Record> out;
  while (s.Step()) out.push_back(Read(s));
  s.Reset();
  return out;
}

void Store::Insert(Record& r) {
  auto& s = db_.Prepare(
      "INSERT INTO records(list_id, kind, name_group, full_name, name_key, parent_id, sublevel, is_active, "
      "time_created, time_modified, edit_sequence, sort_group, balance, ret) "
      "VALUES(?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
  s.Bind(1, r.listId).Bind(2, std::int64_t{r.kind}).Bind(3, std::int64_t{r.nameGroup}).Bind(4, r.fullName);
  s.Bind(5, r.nameKey).Bind(6, r.parentId).Bind(7, std::int64_t{r.sublevel}).Bind(8, std::int64_t{r.active});
  s.Bind(9, r.timeCreated).Bind(10, r.timeModified).Bind(11, r.editSequence).Bind(12, std::int64_t{r.sortGroup});
  s.Bind(13, r.balance).Bind(14, r.ret);
  s.Run();
  r.rowId = db_.LastInsertId();
}

void Store::Update(const Record& r) {
  auto& s = db_.Prepare(
      "UPDATE records SET full_name=?, name_key=?, parent_id=?, sublevel=?, is_active=?, time_modified=?, "
      "edit_sequence=?, sort_group=?, balance=?, ret=? WHERE id=?");
  s.Bind(1, r.fullName).Bind(2, r.nameKey).Bind(3, r.parentId).Bind(4, std::int64_t{r.sublevel});
  s.Bind(5, std::int64_t{r.active}).Bind(6, r.timeModified).Bind(7, r.editSequence);
  s.Bind(8, std::int64_t{r.sortGroup}).Bind(9, r.balance).Bind(10, r.ret).Bind(11, r.rowId);
  s.Run();
}

void Store::Delete(const Record& r) {
  db_.Prepare("DELETE FROM records WHERE id=?").Bind(1, r.rowId).Run();
  db_.Prepare("DELETE FROM refs WHERE source=?").Bind(1, r.listId).Run();
  db_.Prepare("DELETE FROM data_ext_values WHERE object_id=?").Bind(1, r.listId).Run();
}

void Store::SetReferences(std::string_view from, const std::vector<std::string>& to) {
  db_.Prepare("DELETE FROM refs WHERE source=?").Bind(1, from).Run();
  auto& ins = db_.Prepare("INSERT INTO refs(source, target) VALUES(?, ?)");
  for (auto& t : to) {
    ins.Bind(1, from).Bind(2, t);
    ins.Run();
  }
}

std::vector<std::string> Store::Referrers(std::string_view to) {
  auto& s = db_.Prepare("SELECT DISTINCT source FROM refs WHERE target=?");
  s.Bind(1, to);
  std::vector<std::string> out;
  while (s.Step()) out.emplace_back(s.Text(0));
  s.Reset();
  return out;
}

void Store::AddDeleted(int kind, const DeletedRecord& d) {
  db_.Prepare("INSERT INTO deleted(kind, del_type, list_id, full_name, time_created, time_deleted) VALUES(?,?,?,?,?,?)")
      .Bind(1, std::int64_t{kind})
      .Bind(2, d.delType)
      .Bind(3, d.listId)
      .Bind(4, d.fullName)
      .Bind(5, d.timeCreated)
      .Bind(6, d.timeDeleted)
      .Run();
}

std::vector<DeletedRecord> Store::Deleted(const std::vector<std::string>& delTypes, std::int64_t from,
                                          std::int64_t to) {
  std::vector<DeletedRecord> out;
  auto& s = db_.Prepare(
      "SELECT del_type, list_id, full_name, time_created, time_deleted FROM deleted "
      "WHERE del_type=? AND time_deleted>=? AND time_deleted<=? ORDER BY time_deleted, id");
  for (auto& type : delTypes) {
    s.Bind(1, type).Bind(2, from).Bind(3, to);
    while (s.Step())
      out.push_back({std::string(s.Text(0)), std::string(s.Text(1)), std::string(s.Text(2)), s.Int(3), s.Int(4)});
    s.Reset();
  }
  return out;
}

}  // namespace brenvale::rqp::detail
