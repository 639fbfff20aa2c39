#pragma once
// The company file: one SQLite database holding every list record as its canonical Ret element plus
// the columns queries filter and sort on, the references between records, deleted-record traces,
// data extensions and the company's own facts.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "brenvale/rqp/detail/Sqlite.hpp"

namespace brenvale::rqp::detail {

struct Record {
  std::int64_t rowId = 0;
  std::string listId;
  int kind = 0;
  int nameGroup = 0;
  std::string fullName;   // FullName, or Name / Initial for flat lists; empty for to-dos
  std::string nameKey;    // NameKey(fullName)
  std::string parentId;   // empty at the top
  int sublevel = 0;
  bool active = true;
  std::int64_t timeCreated = 0;   // seconds since 1970
  std::int64_t timeModified = 0;
  std::string editSequence;
  int sortGroup = 0;
  std::int64_t balance = 0;       // hundred-thousandths; TotalBalance for the lists that have it
  std::string ret;                // canonical Ret element
};

struct DeletedRecord {
  std::string delType;
  std::string listId;
  std::string fullName;
  std::int64_t timeCreated = 0;
  std::int64_t timeDeleted = 0;
};

class Store {
 public:
  // Opens an existing company file, or creates the tables of a new one (`created` tells which).
  explicit Store(const std::string& path);

  bool Created() const { return created_; }
  Database& Db() { return db_; }

  // Company-wide values (counters, company and preferences elements).
  std::optional<std::string> Meta(std::string_view key);
  void SetMeta(std::string_view key, std::string_view value);
  // The next number of a counter, stored in the file.
  std::int64_t NextNumber(std::string_view counter);

  std::optional<Record> ById(std::string_view listId);
  std::optional<Record> ByRowId(std::int64_t rowId);
  std::optional<Record> ByName(int nameGroup, std::string_view nameKey);
  std::vector<Record> Children(std::string_view parentId);
  void Insert(Record& r);
  void Update(const Record& r);
  void Delete(const Record& r);

  // References from one record to others, kept for renames and deletes.
  void SetReferences(std::string_view from, const std::vector<std::string>& to);
  std::vector<std::string> Referrers(std::string_view to);

  void AddDeleted(int kind, const DeletedRecord& d);
  std::vector<DeletedRecord> Deleted(const std::vector<std::string>& delTypes, std::int64_t from, std::int64_t to);

  // Reads the row the statement is positioned on (columns in kRecordColumns order).
  static Record Read(const Statement& s);
  static constexpr const char* kRecordColumns =
      "id, list_id, kind, name_group, full_name, name_key, parent_id, sublevel, is_active, time_created, "
      "time_modified, edit_sequence, sort_group, balance, ret";

 private:
  bool created_ = false;
  Database db_;
};

}  // namespace brenvale::rqp::detail
