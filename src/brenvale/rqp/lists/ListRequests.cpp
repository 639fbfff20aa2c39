// The request handlers of every list kind: Add, Mod, Query (with iterators), ListDel and
// ListDeletedQuery, plus the combined ItemQuery, EntityQuery and TermsQuery. Query filters read the
// records' columns and index rows, never the stored records.
#include <algorithm>
#include <climits>
#include <unordered_map>
#include <variant>

#include "brenvale/rqp/ledger/Ledger.hpp"
#include "brenvale/rqp/lists/ListKinds.hpp"
#include "brenvale/rqp/protocol/Guid.hpp"
#include "brenvale/rqp/protocol/Status.hpp"
#include "brenvale/rqp/protocol/Text.hpp"
#include "brenvale/rqp/protocol/Times.hpp"
#include "brenvale/rqp/records/RecordWriter.hpp"
#include "brenvale/rqp/records/Records.hpp"

namespace brenvale::rqp::detail {
namespace {

using Kinds = std::vector<const ListKind*>;

void HandleAdd(Context& co, const Request& rq, Reply& reply, const ListKind& kind) {
  Record r = AddListRecord(co, kind, rq.node.child(kind.addName.c_str()));
  WriteListRecord(co, r, OptionsOf(rq.node, rq.version), reply.body);
}

void HandleMod(Context& co, const Request& rq, Reply& reply, const ListKind& kind) {
  Record r = ModListRecord(co, kind, rq.node.child(kind.modName.c_str()));
  WriteListRecord(co, r, OptionsOf(rq.node, rq.version), reply.body);
}

// The WHERE clause of a list query and its parameters.
struct Query {
  std::string where;
  std::vector<std::variant<std::string, std::int64_t>> binds;

  template <class... T>
  void Add(const std::string& clause, T... values) {
    where += " AND " + clause;
    (binds.emplace_back(std::move(values)), ...);
  }
  // Records holding a reference `field` to one of `targets`.
  void Referring(const char* field, const std::vector<std::string>& targets) {
    Add("id IN (SELECT source FROM refs WHERE field=? AND target IN (SELECT value FROM json_each(?)))",
        std::string(field), JsonArray(targets));
  }
  // Records whose indexed value `field` is one of `values`.
  void Valued(const std::string& field, const std::vector<std::string>& values) {
    Add("id IN (SELECT record FROM record_values WHERE field=? AND value IN (SELECT value FROM json_each(?)))",
        field, JsonArray(values));
  }
};

// The ListIDs a reference filter (CurrencyFilter, ClassFilter, ItemRef) names, with the sub-records
// of those named "...WithChildren".
std::vector<std::string> FilterTargets(Context& co, const Kinds& targets, pugi::xml_node filter) {
  std::vector<Record> roots;
  bool withChildren = false;
  for (auto c : filter.children()) {
    std::string_view n = c.name();
    std::string v = c.text().get();
    withChildren = withChildren || n.ends_with("WithChildren");
    auto r = n.starts_with("ListID") ? FindById(co, targets, v) : FindByName(co, targets, v);
    if (r) roots.push_back(*r);
  }
  std::vector<std::string> ids;
  for (std::size_t i = 0; i < roots.size(); ++i) {
    ids.push_back(roots[i].listId);
    if (withChildren)
      for (auto& child : co.Data().Children(roots[i].listId)) roots.push_back(child);
  }
  return ids;
}

void BuildFilters(Context& co, const Kinds& kinds, pugi::xml_node rq, Query& q) {
  std::string active = "ActiveOnly";
  std::vector<std::string> accountTypes, paymentTypes;
  for (auto c : rq.children()) {
    std::string_view n = c.name();
    std::string v = c.text().get();
    if (n == "ActiveStatus") {
      active = v;
    } else if (n == "FromModifiedDate") {
      q.Add("time_modified >= ?", ParseDateTime(v, false));
    } else if (n == "ToModifiedDate") {
      q.Add("time_modified <= ?", ParseDateTime(v, true));
    } else if (n == "NameFilter") {
      std::string criterion = c.child("MatchCriterion").text().get();
      std::string key = NameKey(c.child("Name").text().get());
      q.Add("name_key <> ''");
      if (criterion == "StartsWith") q.Add("name_key >= ? AND name_key <= ?", key, key + "\xFF");
      else if (criterion == "Contains") q.Add("instr(name_key, ?) > 0", key);
      else q.Add("substr(name_key, -?) = ?", static_cast<std::int64_t>(key.size()), key);
    } else if (n == "NameRangeFilter") {
      q.Add("name_key <> ''");
      if (auto from = c.child("FromName")) q.Add("name_key >= ?", NameKey(from.text().get()));
      if (auto to = c.child("ToName")) q.Add("name_key <= ?", NameKey(to.text().get()) + "\xFF");
    } else if (n == "TotalBalanceFilter") {
      // The balance with the sub-records' where the kind has one (a customer with its jobs).
      static const std::pair<std::string_view, const char*> ops[] = {
          {"LessThan", "<"}, {"LessThanEqual", "<="}, {"Equal", "="}, {"GreaterThan", ">"}, {"GreaterThanEqual", ">="}};
      const std::string* total = kinds.front()->ComputedSql("TotalBalance");
      if (!total) total = kinds.front()->ComputedSql("Balance");
      std::string op = c.child("Operator").text().get();
      for (auto [name, sql] : ops)
        if (name == op && total)
          q.Add(*total + " " + sql + " ?",
                static_cast<std::int64_t>(ParseDecimal(c.child("Amount").text().get()).value_or(0)));
    } else if (n == "CurrencyFilter") {
      q.Referring("CurrencyRef", FilterTargets(co, {KindByBase("Currency")}, c));
    } else if (n == "ClassFilter") {
      q.Referring("ClassRef", FilterTargets(co, {KindByBase("Class")}, c));
    } else if (n == "ItemRef") {
      q.Referring("ItemRef", FilterTargets(co, KindsOf(Family::Item), c));
    } else if (n == "AccountType") {
      accountTypes.push_back(v);
    } else if (n == "PaymentMethodType") {
      paymentTypes.push_back(v);
    } else if (n == "DoneStatus" && v != "All") {
      q.Valued("IsDone", {v == "DoneOnly" ? "true" : "false"});
    }
  }
  if (!accountTypes.empty()) q.Valued("AccountType", accountTypes);
  if (!paymentTypes.empty()) q.Valued("PaymentMethodType", paymentTypes);
  // To-do queries list the open ones unless asked otherwise.
  if (std::string_view(rq.name()) == "ToDoQueryRq" && !rq.child("DoneStatus")) q.Valued("IsDone", {"false"});
  if (active == "ActiveOnly") q.Add("is_active = 1");
  else if (active == "InactiveOnly") q.Add("is_active = 0");
}

// Writes the records of `rowIds` in order, a batch at a time: each batch read by one statement, and
// what QuickBooks computes for it by one statement per kind.
void WriteRows(Context& co, const std::vector<std::int64_t>& rowIds, const RetOptions& options, std::string& out) {
  constexpr std::size_t kBatch = 500;
  FullNames names;
  const std::size_t start = out.size();
  for (std::size_t from = 0; from < rowIds.size(); from += kBatch) {
    std::vector<std::int64_t> batch(rowIds.begin() + static_cast<std::ptrdiff_t>(from),
                                    rowIds.begin() + static_cast<std::ptrdiff_t>(std::min(rowIds.size(), from + kBatch)));
    std::vector<Record> records = co.Data().ByRowIds(batch);
    std::unordered_map<int, std::vector<std::int64_t>> byKind;
    for (auto& r : records) byKind[r.kind].push_back(r.rowId);
    ComputedValues values;
    for (auto& [code, ids] : byKind)
      if (const ListKind* kind = KindByCode(code)) values.merge(ComputeValues(co, *kind, ids));
    for (auto& r : records) WriteListRecord(co, r, options, out, &names, &values);
    // A long answer is given room at once, by the size of its first records: growing it step by
    // step copies it over and over.
    if (from == 0 && rowIds.size() > batch.size() && !batch.empty())
      out.reserve(start + (out.size() - start) / batch.size() * rowIds.size() * 5 / 4);
  }
}

void ContinueIteration(Context& co, const Request& rq, Reply& reply, const std::string& how) {
  std::string id(Trim(rq.node.attribute("iteratorID").value()));
  OpenIterator* open = co.OpenIterators().Find(id, rq.name, co.Now());
  if (!open) throw InvalidIterator(id);
  if (how == "Stop") {
    co.OpenIterators().Close(id);
    reply.Attribute("iteratorRemainingCount", "0");
    reply.Attribute("iteratorID", id);
    return;
  }
  auto max = rq.node.child("MaxReturned");
  std::size_t take = max ? std::min<std::size_t>(open->rowIds.size(), max.text().as_ullong()) : open->rowIds.size();
  std::vector<std::int64_t> page(open->rowIds.begin(), open->rowIds.begin() + static_cast<std::ptrdiff_t>(take));
  open->rowIds.erase(open->rowIds.begin(), open->rowIds.begin() + static_cast<std::ptrdiff_t>(take));
  std::size_t remaining = open->rowIds.size();
  WriteRows(co, page, RetOptions{open->include, open->owners, open->version}, reply.body);
  if (remaining == 0) co.OpenIterators().Close(id);
  reply.Attribute("iteratorRemainingCount", std::to_string(remaining));
  reply.Attribute("iteratorID", id);
  if (reply.body.empty()) {
    reply.status = 1;
    reply.message = kNoMatchText;
  }
}

void HandleQuery(Context& co, const Request& rq, Reply& reply, const Kinds& kinds) {
  pugi::xml_node node = rq.node;
  std::string iterator(Trim(node.attribute("iterator").value()));
  if (iterator == "Continue" || iterator == "Stop") return ContinueIteration(co, rq, reply, iterator);
  bool countOnly = CountOnly(rq);
  RetOptions options = OptionsOf(node, rq.version);
  std::int64_t maxReturned = node.child("MaxReturned") ? node.child("MaxReturned").text().as_llong() : -1;

  std::vector<std::int64_t> page, rest;  // the rows answered now, and those an iterator keeps for later
  std::size_t total = 0;
  auto listIds = ChildTexts(node, "ListID");
  auto fullNames = ChildTexts(node, "FullName");
  if (!listIds.empty() || !fullNames.empty()) {
    std::string missing;
    for (auto& id : listIds) {
      if (auto r = FindById(co, kinds, id)) page.push_back(r->rowId);
      else if (missing.empty()) missing = id;
    }
    for (auto& name : fullNames) {
      if (auto r = FindByName(co, kinds, name)) page.push_back(r->rowId);
      else if (missing.empty()) missing = name;
    }
    total = page.size();
    if (!missing.empty()) {
      reply.status = 500;
      reply.message = NotFullyCompletedText(missing);
    }
  } else {
    Query q;
    BuildFilters(co, kinds, node, q);
    // The kinds and name groups are the engine's own numbers: written into the statement, so that
    // SQLite picks the index that serves them (a handful of statement texts in all).
    std::string codes, groups;
    for (auto k : kinds) {
      codes += (codes.empty() ? "" : ",") + std::to_string(k->code);
      std::string g = std::to_string(k->GroupCode());
      if (("," + groups + ",").find("," + g + ",") == std::string::npos) groups += (groups.empty() ? "" : ",") + g;
    }
    std::string sql = "SELECT id FROM records WHERE kind IN (" + codes + ")";
    std::vector<std::variant<std::string, std::int64_t>> binds;
    if (q.where.find("name_key") != std::string::npos) sql += " AND name_group IN (" + groups + ")";
    sql += q.where + " ORDER BY sort_group, name_key, id LIMIT ?";
    binds.insert(binds.end(), q.binds.begin(), q.binds.end());
    bool paged = iterator != "Start" && !countOnly && maxReturned >= 0;
    binds.emplace_back(paged ? maxReturned : std::int64_t{-1});
    auto& s = co.Data().Db().Prepare(sql);
    int i = 1;
    for (auto& b : binds) {
      if (auto text = std::get_if<std::string>(&b)) s.Bind(i++, *text);
      else s.Bind(i++, std::get<std::int64_t>(b));
    }
    while (s.Step()) {
      ++total;
      if (countOnly) continue;
      if (maxReturned < 0 || page.size() < static_cast<std::size_t>(maxReturned)) page.push_back(s.Int(0));
      else rest.push_back(s.Int(0));
    }
    s.Reset();
  }
  if (iterator == "Start" && maxReturned >= 0 && page.size() > static_cast<std::size_t>(maxReturned)) {
    rest.insert(rest.begin(), page.begin() + maxReturned, page.end());
    page.resize(static_cast<std::size_t>(maxReturned));
  }
  Found(rq, reply, total);
  if (!countOnly) WriteRows(co, page, options, reply.body);
  if (iterator == "Start") {
    std::size_t remaining = rest.size();
    std::string id = remaining ? co.OpenIterators().Open(
                                     OpenIterator{std::string(rq.name), std::move(rest), options.include,
                                                  options.owners, rq.version},
                                     co.Now())
                               : NewGuid();
    reply.Attribute("iteratorRemainingCount", std::to_string(remaining));
    reply.Attribute("iteratorID", id);
  }
}

void HandleListDel(Context& co, const Request& rq, Reply& reply) {
  std::string type = rq.node.child("ListDelType").text().get();
  std::string listId = rq.node.child("ListID").text().get();
  const ListKind* kind = KindByBase(type);
  if (!kind) throw NotFound(listId);
  DeletedRecord d = DeleteListRecord(co, *kind, listId);
  AppendElement(reply.body, "ListDelType", d.delType);
  AppendElement(reply.body, "ListID", d.listId);
  AppendElement(reply.body, "TimeDeleted", DateTimeText(d.timeDeleted));
  if (!d.fullName.empty()) AppendElement(reply.body, "FullName", d.fullName);
  reply.body += '\n';
}

void HandleListDeletedQuery(Context& co, const Request& rq, Reply& reply) {
  auto types = ChildTexts(rq.node, "ListDelType");
  std::int64_t from = INT64_MIN, to = INT64_MAX;
  if (auto range = rq.node.child("DeletedDateRangeFilter")) {
    if (auto f = range.child("FromDeletedDate")) from = ParseDateTime(f.text().get(), false);
    if (auto t = range.child("ToDeletedDate")) to = ParseDateTime(t.text().get(), true);
  }
  RetOptions options = OptionsOf(rq.node, rq.version);
  auto rows = co.Data().Deleted(types, from, to);
  Found(rq, reply, rows.size());
  if (CountOnly(rq)) return;
  for (auto& d : rows) {
    std::string ret = "<ListDeletedRet>";
    AppendElement(ret, "ListDelType", d.delType);
    AppendElement(ret, "ListID", d.listId);
    AppendElement(ret, "TimeCreated", DateTimeText(d.timeCreated));
    AppendElement(ret, "TimeDeleted", DateTimeText(d.timeDeleted));
    if (!d.fullName.empty()) AppendElement(ret, "FullName", d.fullName);
    ret += "</ListDeletedRet>";
    WriteRecord(co, {}, ret, options, reply.body);
  }
}

// The record of `kinds` a reference of a bills-to-pay query names by ListID or full name; an invalid
// reference to the `list` when it names none.
Record Referenced(Context& co, const Kinds& kinds, pugi::xml_node ref, std::string_view list) {
  std::string value = ref.first_child().text().get();
  auto r = std::string_view(ref.first_child().name()) == "ListID" ? FindById(co, kinds, value)
                                                                    : FindByName(co, kinds, value);
  if (!r) throw InvalidReference(list, value, "Bill To Pay query");
  return *r;
}

// A vendor's open bills and the credits it has to apply, each from what its transaction left open
// on an accounts payable account: a credit balance is a bill to pay, a debit balance a credit to
// apply. A vendor's opening balance is a bill dated and due on its opening-balance date.
void HandleBillToPayQuery(Context& co, const Request& rq, Reply& reply) {
  Record payee = Referenced(co, KindsOf(Family::Entity), rq.node.child("PayeeEntityRef"), "Entity");
  // Every accounts payable account, or the one named.
  std::vector<std::string> accounts;
  auto& payables = co.Data().Db().Prepare(
      "SELECT r.list_id FROM record_values v JOIN records r ON r.id = v.record "
      "WHERE v.field = 'AccountType' AND v.value = 'AccountsPayable'");
  while (payables.Step()) accounts.emplace_back(payables.Text(0));
  payables.Reset();
  if (auto apRef = rq.node.child("APAccountRef")) {
    Record ap = Referenced(co, {KindByBase("Account")}, apRef, "Account");
    bool payable = std::find(accounts.begin(), accounts.end(), ap.listId) != accounts.end();
    accounts.assign(payable ? 1 : 0, ap.listId);
  }
  bool inCurrency = true;
  if (auto filter = rq.node.child("CurrencyFilter")) {
    auto& s = co.Data().Db().Prepare("SELECT target FROM refs WHERE source = ? AND field = 'CurrencyRef'");
    s.Bind(1, payee.rowId);
    std::string currency = s.Step() ? std::string(s.Text(0)) : std::string();
    s.Reset();
    auto wanted = FilterTargets(co, {KindByBase("Currency")}, filter);
    inCurrency = std::find(wanted.begin(), wanted.end(), currency) != wanted.end();
  }
  std::string dueBy = rq.node.child("DueDate").text().get();
  RetOptions options = OptionsOf(rq.node, rq.version);
  std::vector<std::string> rets;
  if (payee.kind == KindByBase("Vendor")->code && inCurrency) {
    for (auto& open : Ledger(co.Data()).OpenAmounts(payee.listId, accounts)) {
      bool bill = open.amount < 0;
      if (bill && !dueBy.empty() && open.date > dueBy) continue;
      std::string ret = bill ? "<BillToPayRet><BillToPay>" : "<BillToPayRet><CreditToApply>";
      AppendElement(ret, "TxnID", open.txnId);
      AppendElement(ret, "TxnType", bill ? "Bill" : "VendorCredit");
      ret += "<APAccountRef><ListID>" + open.account + "</ListID></APAccountRef>";
      AppendElement(ret, "TxnDate", open.date);
      if (bill) AppendElement(ret, "DueDate", open.date);
      AppendElement(ret, bill ? "AmountDue" : "CreditRemaining",
                    FormatNumber(VType::Amt, bill ? -open.amount : open.amount));
      rets.push_back(ret + (bill ? "</BillToPay></BillToPayRet>" : "</CreditToApply></BillToPayRet>"));
    }
  }
  Found(rq, reply, rets.size());
  if (!CountOnly(rq))
    for (auto& ret : rets) WriteRecord(co, {}, ret, options, reply.body);
}

}  // namespace

void AddListHandlers(HandlerTable& table) {
  const Declarations& declared = Declarations::Get();
  for (auto& kind : KindRegistry::All()) {
    const ListKind* k = &kind;
    if (k->add) table[k->addRq] = [k](Context& co, const Request& rq, Reply& r) { HandleAdd(co, rq, r, *k); };
    if (k->mod) table[k->modRq] = [k](Context& co, const Request& rq, Reply& r) { HandleMod(co, rq, r, *k); };
    if (declared.Request(k->queryRq))
      table[k->queryRq] = [k](Context& co, const Request& rq, Reply& r) { HandleQuery(co, rq, r, {k}); };
  }
  auto combined = [&](const char* name, Family family) {
    Kinds kinds = KindsOf(family);
    table[name] = [kinds](Context& co, const Request& rq, Reply& r) { HandleQuery(co, rq, r, kinds); };
  };
  combined("ItemQueryRq", Family::Item);
  combined("EntityQueryRq", Family::Entity);
  combined("TermsQueryRq", Family::Terms);
  table["ListDelRq"] = HandleListDel;
  table["ListDeletedQueryRq"] = HandleListDeletedQuery;
  table["BillToPayQueryRq"] = HandleBillToPayQuery;
}

}  // namespace brenvale::rqp::detail
