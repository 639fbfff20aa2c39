// The company file's schema versions. A file records its version in SQLite's user_version; the
// files of the first engine carry none and are known by their "format" meta value. Each step takes
// a file from one version to the next; a new file runs them all.
#include <string>

#include "brenvale/rqp/store/Store.hpp"

namespace brenvale::rqp::detail {
namespace {

// Version 1: the tables of the first company engine, kept as they were written then.
constexpr const char* kVersion1 = R"SQL(
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
INSERT INTO meta (key, value) VALUES ('format', 'brenvale-company-1');
)SQL";

// Version 2: references by field and target, indexed values, so that query filters read index rows
// instead of stored records; stored records keep a reference's ListID only (names are filled in
// when a record is written), which the rebuild of the index rows brings about.
constexpr const char* kVersion2 = R"SQL(
DROP TABLE refs;
CREATE TABLE refs (
  source INTEGER NOT NULL,  -- records.id
  field TEXT NOT NULL,      -- the reference element: "ClassRef", "ParentRef"
  target TEXT NOT NULL);    -- the ListID it names
CREATE INDEX refs_by_source ON refs (source);
CREATE INDEX refs_by_field_target ON refs (field, target);
CREATE INDEX refs_by_target ON refs (target);
CREATE TABLE record_values (
  record INTEGER NOT NULL,  -- records.id
  field TEXT NOT NULL,      -- "AccountType", "IsDone"
  value TEXT NOT NULL);
CREATE INDEX record_values_by_record ON record_values (record);
CREATE INDEX record_values_by_field_value ON record_values (field, value);
INSERT INTO meta (key, value) VALUES ('reindex', '1') ON CONFLICT (key) DO UPDATE SET value = excluded.value;
)SQL";

// Version 3: the ledger. Every amount a transaction moves is a posting; balances are sums over
// them, so records keep no totals. Older files kept opening balances as totals in their records;
// the engine posts them as the opening balances they were when it opens such a file.
constexpr const char* kVersion3 = R"SQL(
CREATE TABLE postings (
  id INTEGER PRIMARY KEY,
  txn_type TEXT NOT NULL,    -- with txn_id, the transaction that posted it: "OpeningBalance", "Invoice"
  txn_id TEXT NOT NULL,
  line INTEGER NOT NULL,     -- its place among the transaction's postings
  date TEXT NOT NULL,        -- "2024-01-31"
  account TEXT NOT NULL,     -- the account's ListID
  amount INTEGER NOT NULL,   -- hundred-thousandths; debits positive, credits negative
  quantity INTEGER,          -- stock moved in (positive) or out, hundred-thousandths; NULL when none moves
  entity TEXT NOT NULL DEFAULT '',  -- ListIDs of the customer, vendor, employee or other name,
  item TEXT NOT NULL DEFAULT '',    -- the item and the class it is for
  class TEXT NOT NULL DEFAULT '');
CREATE INDEX postings_by_txn ON postings (txn_type, txn_id);
CREATE INDEX postings_by_account ON postings (account, date);
CREATE INDEX postings_by_entity ON postings (entity, account);
CREATE INDEX postings_by_item ON postings (item);
CREATE INDEX postings_by_class ON postings (class);
ALTER TABLE records DROP COLUMN balance;
INSERT INTO meta (key, value) VALUES ('reindex', '1') ON CONFLICT (key) DO UPDATE SET value = excluded.value;
INSERT INTO meta (key, value) VALUES ('post stored totals', '1') ON CONFLICT (key) DO UPDATE SET value = excluded.value;
)SQL";

constexpr const char* kSteps[] = {kVersion1, kVersion2, kVersion3};
static_assert(std::size(kSteps) == Store::kSchemaVersion);

void RunSteps(Database& db, int from, int to) {
  for (int v = from + 1; v <= to; ++v) db.Exec(kSteps[v - 1]);
  db.Exec(("PRAGMA user_version = " + std::to_string(to)).c_str());
}

}  // namespace

void Store::Create(const std::string& path, int version) {
  if (version < 1 || version > kSchemaVersion) throw std::logic_error("no company file version " + std::to_string(version));
  Database db(path, true);
  db.Exec("BEGIN");
  try {
    RunSteps(db, 0, version);
    db.Exec("COMMIT");
  } catch (...) {
    db.Exec("ROLLBACK");
    throw;
  }
}

int Store::ReadVersion() {
  auto& v = db_.Prepare("PRAGMA user_version");
  int version = v.Step() ? static_cast<int>(v.Int(0)) : 0;
  v.Reset();
  if (version > 0) return version;
  auto& s = db_.Prepare("SELECT count(*) FROM sqlite_master WHERE type='table' AND name='meta'");
  bool hasMeta = s.Step() && s.Int(0) > 0;
  s.Reset();
  if (hasMeta && Meta("format") == "brenvale-company-1") return 1;
  return 0;
}

bool Store::Migrate() {
  if (version_ == kSchemaVersion) return false;
  db_.Exec("BEGIN IMMEDIATE");
  try {
    version_ = ReadVersion();  // another session may have brought it up meanwhile
    bool migrated = version_ < kSchemaVersion;
    if (migrated) RunSteps(db_, version_, kSchemaVersion);
    db_.Exec("COMMIT");
    version_ = kSchemaVersion;
    return migrated;
  } catch (...) {
    db_.Exec("ROLLBACK");
    throw;
  }
}

bool Store::NeedsReindex() { return Meta("reindex") == "1"; }

void Store::Reindexed() { db_.Prepare("DELETE FROM meta WHERE key IN ('reindex', 'post stored totals')").Run(); }

bool Store::HoldsStoredTotals() { return Meta("post stored totals") == "1"; }

}  // namespace brenvale::rqp::detail
