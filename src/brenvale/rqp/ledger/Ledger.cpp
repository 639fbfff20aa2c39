#include "brenvale/rqp/ledger/Ledger.hpp"

#include <algorithm>
#include <iterator>

namespace brenvale::rqp::detail {
namespace {

constexpr std::string_view kCreditTypes[] = {"AccountsPayable", "CreditCard",  "OtherCurrentLiability",
                                             "LongTermLiability", "Equity", "Income", "OtherIncome"};
constexpr std::string_view kNoBalanceTypes[] = {"Income", "CostOfGoodsSold", "Expense", "OtherIncome",
                                                "OtherExpense", "NonPosting"};

template <std::size_t N>
bool In(const std::string_view (&list)[N], std::string_view v) {
  return std::find(std::begin(list), std::end(list), v) != std::end(list);
}

template <std::size_t N>
std::string SqlList(const std::string_view (&list)[N]) {
  std::string out = "(";
  for (auto v : list) out += (out.size() > 1 ? ",'" : "'") + std::string(v) + "'";
  return out + ")";
}

// The ListIDs of the row's record and, when asked, of every record below it: those of its name group
// whose name key is its own or starts with its own and the hierarchy separator (the name key ranks
// ':' as \x01, below every other character), one range of the name index.
std::string Self(bool withSubRecords) {
  if (!withSubRecords) return "(records.list_id)";
  return "(SELECT c.list_id FROM records c WHERE c.name_group = records.name_group AND c.name_key <> '' "
         "AND c.name_key >= records.name_key AND c.name_key < records.name_key || char(2))";
}

}  // namespace

void Ledger::Post(const LedgerEntry& entry) {
  std::int64_t sum = 0;
  for (auto& p : entry.postings) {
    if (p.account.empty()) throw LedgerError("a posting of " + entry.txnType + " " + entry.txnId + " names no account");
    sum += p.amount;
  }
  if (sum != 0)
    throw LedgerError("the postings of " + entry.txnType + " " + entry.txnId + " do not sum to zero (" +
                      std::to_string(sum) + ")");
  Database& db = store_.Db();
  db.Prepare("DELETE FROM postings WHERE txn_type=? AND txn_id=?").Bind(1, entry.txnType).Bind(2, entry.txnId).Run();
  auto& insert = db.Prepare(
      "INSERT INTO postings(txn_type, txn_id, line, date, account, amount, quantity, entity, item, class) "
      "VALUES(?,?,?,?,?,?,?,?,?,?)");
  std::int64_t line = 0;
  for (auto& p : entry.postings) {
    insert.Bind(1, entry.txnType).Bind(2, entry.txnId).Bind(3, ++line).Bind(4, entry.date).Bind(5, p.account);
    insert.Bind(6, p.amount);
    if (p.quantity) insert.Bind(7, *p.quantity);
    else insert.BindNull(7);
    insert.Bind(8, p.entity).Bind(9, p.item).Bind(10, p.cls);
    insert.Run();
  }
}

std::optional<std::string> Ledger::DateOf(std::string_view txnType, std::string_view txnId) {
  auto& s = store_.Db().Prepare("SELECT date FROM postings WHERE txn_type=? AND txn_id=? LIMIT 1");
  s.Bind(1, txnType).Bind(2, txnId);
  std::optional<std::string> out;
  if (s.Step()) out = std::string(s.Text(0));
  s.Reset();
  return out;
}

void Ledger::Redate(std::string_view txnType, std::string_view txnId, std::string_view date) {
  store_.Db().Prepare("UPDATE postings SET date=? WHERE txn_type=? AND txn_id=?").Bind(1, date).Bind(2, txnType).Bind(3, txnId).Run();
}

std::string Ledger::SpecialAccount(std::string_view special) {
  auto& s = store_.Db().Prepare(
      "SELECT r.list_id FROM record_values v JOIN records r ON r.id = v.record "
      "WHERE v.field='SpecialAccountType' AND v.value=? ORDER BY r.id LIMIT 1");
  s.Bind(1, special);
  std::optional<std::string> out;
  if (s.Step()) out = std::string(s.Text(0));
  s.Reset();
  if (!out) throw LedgerError("the company has no " + std::string(special) + " account");
  return *out;
}

std::vector<OpenAmount> Ledger::OpenAmounts(std::string_view entity, const std::vector<std::string>& accounts) {
  auto& s = store_.Db().Prepare(
      "SELECT txn_type, txn_id, account, min(date), sum(amount) FROM postings WHERE entity=? AND account IN "
      "(SELECT value FROM json_each(?)) GROUP BY txn_type, txn_id, account HAVING sum(amount) <> 0 "
      "ORDER BY min(date), min(id)");
  s.Bind(1, entity).Bind(2, JsonArray(accounts));
  std::vector<OpenAmount> out;
  while (s.Step())
    out.push_back(OpenAmount{std::string(s.Text(0)), std::string(s.Text(1)), std::string(s.Text(2)),
                             std::string(s.Text(3)), s.Int(4)});
  s.Reset();
  return out;
}

std::vector<std::string> Ledger::Unbalanced() {
  auto& s = store_.Db().Prepare(
      "SELECT txn_type, txn_id, sum(amount) FROM postings GROUP BY txn_type, txn_id HAVING sum(amount) <> 0");
  std::vector<std::string> out;
  while (s.Step()) out.push_back(std::string(s.Text(0)) + " " + std::string(s.Text(1)) + ": " + std::to_string(s.Int(2)));
  s.Reset();
  return out;
}

bool CreditNormal(std::string_view accountType) { return In(kCreditTypes, accountType); }
bool CarriesBalance(std::string_view accountType) { return !In(kNoBalanceTypes, accountType); }

std::string EntityBalanceSql(std::string_view accountType, bool withSubRecords) {
  // Postings are few per entity: each is checked for its account's type.
  std::string sum =
      "(SELECT coalesce(sum(p.amount), 0) FROM postings p WHERE p.entity IN " + Self(withSubRecords) +
      " AND EXISTS (SELECT 1 FROM records a JOIN record_values t ON t.record = a.id WHERE a.list_id = p.account "
      "AND t.field = 'AccountType' AND t.value = '" + std::string(accountType) + "'))";
  return CreditNormal(accountType) ? "(-" + sum + ")" : sum;
}

std::string AccountBalanceSql(bool withSubAccounts) {
  return "((SELECT CASE WHEN t.value IN " + SqlList(kNoBalanceTypes) + " THEN 0 WHEN t.value IN " +
         SqlList(kCreditTypes) +
         " THEN -1 ELSE 1 END FROM record_values t WHERE t.record = records.id AND t.field = 'AccountType') * "
         "(SELECT coalesce(sum(p.amount), 0) FROM postings p WHERE p.account IN " + Self(withSubAccounts) + "))";
}

std::string QuantityOnHandSql() {
  return "(SELECT coalesce(sum(p.quantity), 0) FROM postings p WHERE p.item = records.list_id AND p.quantity IS NOT NULL)";
}

std::string AverageCostSql() {
  return "(SELECT CASE WHEN coalesce(sum(p.quantity), 0) = 0 THEN 0 "
         "ELSE CAST(round(sum(p.amount) * 100000.0 / sum(p.quantity)) AS INTEGER) END "
         "FROM postings p WHERE p.item = records.list_id AND p.quantity IS NOT NULL)";
}

}  // namespace brenvale::rqp::detail
