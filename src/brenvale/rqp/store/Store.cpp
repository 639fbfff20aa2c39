#include "brenvale/rqp/store/Store.hpp"

#include <unordered_map>

namespace brenvale::rqp::detail {
Store::Store(const std::string& path) : db_(path, false) {
  try {
    version_ = ReadVersion();
  } catch (const SqliteError& e) {
    if ((e.Code() & 0xFF) == 26 /* SQLITE_NOTADB */) throw CompanyFileError("not a company file");
    throw;
  }
  if (version_ == 0) throw CompanyFileError("not a company file");
  if (version_ > kSchemaVersion)
    throw CompanyFileError("made by a newer company engine (company file version " + std::to_string(version_) + ")");
  db_.Exec("PRAGMA journal_mode=WAL");
  db_.Exec("PRAGMA synchronous=NORMAL");
  // Each request runs in a savepoint, whose journal of the pages it changes would otherwise be a
  // temporary file written page by page: in memory, a message of many requests writes nothing
  // until it commits.
  db_.Exec("PRAGMA temp_store=MEMORY");
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
  r.ret = s.Text(13);
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

std::vector<Record> Store::ByRowIds(const std::vector<std::int64_t>& rowIds) {
  auto& s = db_.Prepare(std::string("SELECT ") + kRecordColumns +
                        " FROM records WHERE id IN (SELECT value FROM json_each(?))");
  s.Bind(1, JsonArray(rowIds));
  std::unordered_map<std::int64_t, Record> found;
  while (s.Step()) {
    Record r = Read(s);
    found.emplace(r.rowId, std::move(r));
  }
  s.Reset();
  std::vector<Record> out;
  out.reserve(rowIds.size());
  for (auto id : rowIds)
    if (auto it = found.find(id); it != found.end()) out.push_back(std::move(it->second));
  return out;
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
      "time_created, time_modified, edit_sequence, sort_group, ret) "
      "VALUES(?,?,?,?,?,?,?,?,?,?,?,?,?)");
  s.Bind(1, r.listId).Bind(2, std::int64_t{r.kind}).Bind(3, std::int64_t{r.nameGroup}).Bind(4, r.fullName);
  s.Bind(5, r.nameKey).Bind(6, r.parentId).Bind(7, std::int64_t{r.sublevel}).Bind(8, std::int64_t{r.active});
  s.Bind(9, r.timeCreated).Bind(10, r.timeModified).Bind(11, r.editSequence).Bind(12, std::int64_t{r.sortGroup});
  s.Bind(13, r.ret);
  s.Run();
  r.rowId = db_.LastInsertId();
}

void Store::Update(const Record& r) {
  auto& s = db_.Prepare(
      "UPDATE records SET full_name=?, name_key=?, parent_id=?, sublevel=?, is_active=?, time_modified=?, "
      "edit_sequence=?, sort_group=?, ret=? WHERE id=?");
  s.Bind(1, r.fullName).Bind(2, r.nameKey).Bind(3, r.parentId).Bind(4, std::int64_t{r.sublevel});
  s.Bind(5, std::int64_t{r.active}).Bind(6, r.timeModified).Bind(7, r.editSequence);
  s.Bind(8, std::int64_t{r.sortGroup}).Bind(9, r.ret).Bind(10, r.rowId);
  s.Run();
}

void Store::Delete(const Record& r) {
  db_.Prepare("DELETE FROM records WHERE id=?").Bind(1, r.rowId).Run();
  SetIndex(r.rowId, {}, {});
  db_.Prepare("DELETE FROM data_ext_values WHERE object_id=?").Bind(1, r.listId).Run();
}

std::vector<std::int64_t> Store::AllRowIds() {
  auto& s = db_.Prepare("SELECT id FROM records ORDER BY id");
  std::vector<std::int64_t> out;
  while (s.Step()) out.push_back(s.Int(0));
  s.Reset();
  return out;
}

void Store::SetIndex(std::int64_t rowId, const FieldValues& references, const FieldValues& values, bool fresh) {
  if (!fresh) {
    db_.Prepare("DELETE FROM refs WHERE source=?").Bind(1, rowId).Run();
    db_.Prepare("DELETE FROM record_values WHERE record=?").Bind(1, rowId).Run();
  }
  auto& ref = db_.Prepare("INSERT INTO refs(source, field, target) VALUES(?, ?, ?)");
  for (auto& [field, target] : references) {
    ref.Bind(1, rowId).Bind(2, field).Bind(3, target);
    ref.Run();
  }
  auto& value = db_.Prepare("INSERT INTO record_values(record, field, value) VALUES(?, ?, ?)");
  for (auto& [field, v] : values) {
    value.Bind(1, rowId).Bind(2, field).Bind(3, v);
    value.Run();
  }
}

bool Store::InUse(std::string_view listId, std::int64_t except) {
  // One probe per index: a record's reference, or a posting to the account, for the entity, the
  // item or the class.
  auto& s = db_.Prepare(
      "SELECT EXISTS (SELECT 1 FROM refs WHERE target=?1 AND source<>?2) "
      "OR EXISTS (SELECT 1 FROM postings WHERE account=?1) OR EXISTS (SELECT 1 FROM postings WHERE entity=?1) "
      "OR EXISTS (SELECT 1 FROM postings WHERE item=?1) OR EXISTS (SELECT 1 FROM postings WHERE class=?1)");
  s.Bind(1, listId).Bind(2, except);
  bool used = s.Step() && s.Int(0) != 0;
  s.Reset();
  return used;
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

std::vector<DataExtValue> Store::DataExtValuesOf(std::string_view objectId) {
  auto& s = db_.Prepare(
      "SELECT v.owner_id, d.ret, v.value FROM data_ext_values v JOIN data_ext_defs d "
      "ON d.owner_id=v.owner_id AND d.name_key=v.name_key WHERE v.object_id=? ORDER BY d.data_ext_id");
  s.Bind(1, objectId);
  std::vector<DataExtValue> out;
  while (s.Step()) out.push_back({std::string(s.Text(0)), std::string(s.Text(1)), std::string(s.Text(2))});
  s.Reset();
  return out;
}

}  // namespace brenvale::rqp::detail
