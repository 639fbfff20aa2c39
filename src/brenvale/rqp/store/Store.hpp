#pragma once
// The company file: one SQLite database holding every list record as its canonical Ret element plus
// the columns and index rows queries filter and sort on (references by field, indexed values), the
// deleted-record traces, data extensions, the ledger's postings and the company's own facts. Its tables carry a schema
// version; opening a file made by an older engine brings it up to date (Migrate), so the company
// files users already have keep working as new tables arrive.
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "brenvale/rqp/store/Sqlite.hpp"

namespace brenvale::rqp::detail {

// A file that cannot serve as a company file: not one at all, or one made by a newer engine.
class CompanyFileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

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
  int sortGroup = 0;              // where the record sorts before its name (account types, item kinds)
  std::string ret;                // canonical Ret element; references hold their ListID only; what
                                  // QuickBooks computes (balances) is an empty element, filled when written
};

struct DeletedRecord {
  std::string delType;
  std::string listId;
  std::string fullName;
  std::int64_t timeCreated = 0;
  std::int64_t timeDeleted = 0;
};

// One data extension value of an object, with the definition it belongs to.
struct DataExtValue {
  std::string ownerId;
  std::string defRet;  // the definition's DataExtDefRet element
  std::string value;
};

// (field, value) pairs: a record's references ("ClassRef", ListID) or its indexed values
// ("AccountType", "Bank").
using FieldValues = std::vector<std::pair<std::string, std::string>>;

class Store {
 public:
  // The schema version this engine writes.
  static constexpr int kSchemaVersion = 3;

  // Opens an existing company file. Throws CompanyFileError when the file is not a company file or
  // was made by a newer engine, SqliteError when it cannot be read. Changes nothing.
  explicit Store(const std::string& path);
  // Makes the tables of a new company file at `path` (which must not exist), at `version`: every
  // company file starts as version 1 and is brought up from there.
  static void Create(const std::string& path, int version = kSchemaVersion);

  Database& Db() { return db_; }
  int SchemaVersion() const { return version_; }
  // Brings an older file up to this engine's version, in one transaction; true when it did.
  bool Migrate();
  // Whether the index rows must be rebuilt from the stored records (after a migration that changed
  // them); Reindexed() says they were.
  bool NeedsReindex();
  void Reindexed();
  // Whether the records still hold the totals a file kept before the ledger (balances, quantities
  // on hand), to be posted as opening balances before the records are rebuilt. Reindexed() clears it.
  bool HoldsStoredTotals();

  // Company-wide values (counters, company and preferences elements).
  std::optional<std::string> Meta(std::string_view key);
  void SetMeta(std::string_view key, std::string_view value);
  // The next number of a counter, stored in the file.
  std::int64_t NextNumber(std::string_view counter);

  std::optional<Record> ById(std::string_view listId);
  std::optional<Record> ByRowId(std::int64_t rowId);
  // The records of `rowIds` in that order (those no longer there left out), read by one statement.
  std::vector<Record> ByRowIds(const std::vector<std::int64_t>& rowIds);
  std::optional<Record> ByName(int nameGroup, std::string_view nameKey);
  std::vector<Record> Children(std::string_view parentId);
  // Every record's row id, in storage order (for rebuilding index rows).
  std::vector<std::int64_t> AllRowIds();
  void Insert(Record& r);
  void Update(const Record& r);
  void Delete(const Record& r);

  // A record's references and indexed values, replaced as a whole (`fresh`: it has none yet).
  void SetIndex(std::int64_t rowId, const FieldValues& references, const FieldValues& values, bool fresh = false);
  // Whether any record other than `except`, or any posting, refers to `listId`.
  bool InUse(std::string_view listId, std::int64_t except);

  void AddDeleted(int kind, const DeletedRecord& d);
  std::vector<DeletedRecord> Deleted(const std::vector<std::string>& delTypes, std::int64_t from, std::int64_t to);

  // The data extension values stored on an object (a ListID or "COMPANY"), in definition order.
  std::vector<DataExtValue> DataExtValuesOf(std::string_view objectId);

  // Reads the row the statement is positioned on (columns in kRecordColumns order).
  static Record Read(const Statement& s);
  static constexpr const char* kRecordColumns =
      "id, list_id, kind, name_group, full_name, name_key, parent_id, sublevel, is_active, time_created, "
      "time_modified, edit_sequence, sort_group, ret";

 private:
  Database db_;
  int version_ = 0;
  int ReadVersion();
};

}  // namespace brenvale::rqp::detail
