// The request handlers of every list kind: Add, Mod, Query (with iterators), ListDel and
// ListDeletedQuery, plus the combined ItemQuery, EntityQuery and TermsQuery.
#include <algorithm>
#include <random>
#include <variant>

#include "brenvale/rqp/detail/ListRecords.hpp"
#include "brenvale/rqp/detail/Text.hpp"

namespace brenvale::rqp::detail {
namespace {

using Kinds = std::vector<const ListKind*>;




std::string NewIteratorId() {
  static thread_local std::mt19937_64 rng{std::random_device{}()};
  char buf[48];
  std::uint64_t a = rng(), b = rng();
  std::snprintf(buf, sizeof buf, "{%08x-%04x-%04x-%04x-%012llx}", static_cast<unsigned>(a >> 32),
                static_cast<unsigned>((a >> 16) & 0xFFFF), static_cast<unsigned>(a & 0xFFFF),
                static_cast<unsigned>(b >> 48), static_cast<unsigned long long>(b & 0xFFFFFFFFFFFFULL));
  return buf;
}

void Attr(Reply& reply, const char* name, const std::string& value) {
  reply.attributes += " ";
  reply.attributes += name;
  reply.attributes += "=\"";
  AppendEscaped(reply.attributes, value);
  reply.attributes += '"';
}

void HandleAdd(Company& co, const Request& rq, Reply& reply, const ListKind& kind) {
  Record r = AddListRecord(co, kind, rq.node.child((std::string(kind.base) + "Add").c_str()));
  WriteRecord(co, r.listId, r.ret, ChildTexts(rq.node, "IncludeRetElement"), {}, reply.body);
}

void HandleMod(Company& co, const Request& rq, Reply& reply, const ListKind& kind) {
  Record r = ModListRecord(co, kind, rq.node.child((std::string(kind.base) + "Mod").c_str()));
  WriteRecord(co, r.listId, r.ret, ChildTexts(rq.node, "IncludeRetElement"), {}, reply.body);
}

// A filter the index cannot answer: the stored Ret must contain one of the fragments.
using Fragments = std::vector<std::string>;

struct Query {
  std::string where;
  std::vector<std::variant<std::string, std::int64_t>> binds;
  std::vector<Fragments> fragments;
  bool byName = false;  // a name filter narrows the names

  void Add(const std::string& clause) { where += " AND " + clause; }
  template <class T>
  void Bind(T v) { binds.emplace_back(std::move(v)); }
  bool Matches(std::string_view ret) const {
    for (auto& any : fragments)
      if (std::none_of(any.begin(), any.end(), [&](auto& f) { return ret.find(f) != std::string_view::npos; }))
        return false;
    return true;
  }
};

// Ref filters (CurrencyFilter, ClassFilter, ItemRef): the ListIDs a "<XRef><ListID>" may carry.
Fragments RefFragments(Company& co, const char* refName, const Kinds& targets, pugi::xml_node filter) {
  Fragments out;
  std::vector<Record> roots;
  bool withChildren = false;
  for (auto c : filter.children()) {
    std::string_view n = c.name();
    std::string v = c.text().get();
    withChildren = withChildren || n.ends_with("WithChildren");
    auto r = n.starts_with("ListID") ? FindById(co, targets, v) : FindByName(co, targets, v);
    if (r) roots.push_back(*r);
  }
  for (std::size_t i = 0; i < roots.size(); ++i) {
    out.push_back("<" + std::string(refName) + "><ListID>" + roots[i].listId + "</ListID>");
    if (withChildren)
      for (auto& child : co.Data().Children(roots[i].listId)) roots.push_back(child);
  }
  if (out.empty()) out.emplace_back("\x01");  // names nothing: matches nothing
  return out;
}

void BuildFilters(Company& co, pugi::xml_node rq, Query& q) {
  std::string active = "ActiveOnly";
  for (auto c : rq.children()) {
    std::string_view n = c.name();
    std::string v = c.text().get();
    if (n == "ActiveStatus") {
      active = v;
    } else if (n == "FromModifiedDate") {
      q.Add("time_modified >= ?");
      q.Bind(ParseDateTime(v, false));
    } else if (n == "ToModifiedDate") {
      q.Add("time_modified <= ?");
      q.Bind(ParseDateTime(v, true));
    } else if (n == "NameFilter") {
      std::string criterion = c.child("MatchCriterion").text().get();
      std::string key = NameKey(c.child("Name").text().get());
      q.Add("name_key <> ''");
      q.byName = criterion == "StartsWith";
      if (criterion == "StartsWith") {
        q.Add("name_key >= ? AND name_key <= ?");
        q.Bind(key);
        q.Bind(key + "\xFF");
      } else if (criterion == "Contains") {
        q.Add("instr(name_key, ?) > 0");
        q.Bind(key);
      } else {
        q.Add("substr(name_key, -?) = ?");
        q.Bind(static_cast<std::int64_t>(key.size()));
        q.Bind(key);
      }
    } else if (n == "NameRangeFilter") {
      q.Add("name_key <> ''");
      q.byName = true;
      if (auto from = c.child("FromName")) {
        q.Add("name_key >= ?");
        q.Bind(NameKey(from.text().get()));
      }
      if (auto to = c.child("ToName")) {
        q.Add("name_key <= ?");
        q.Bind(NameKey(to.text().get()) + "\xFF");
      }
    } else if (n == "TotalBalanceFilter") {
      static const std::pair<std::string_view, const char*> ops[] = {
          {"LessThan", "<"}, {"LessThanEqual", "<="}, {"Equal", "="}, {"GreaterThan", ">"}, {"GreaterThanEqual", ">="}};
      std::string op = c.child("Operator").text().get();
      for (auto [name, sql] : ops)
        if (name == op) q.Add(std::string("balance ") + sql + " ?");
      q.Bind(static_cast<std::int64_t>(ParseDecimal(c.child("Amount").text().get()).value_or(0)));
    } else if (n == "CurrencyFilter") {
      q.fragments.push_back(RefFragments(co, "CurrencyRef", {KindByBase("Currency")}, c));
    } else if (n == "ClassFilter") {
      q.fragments.push_back(RefFragments(co, "ClassRef", {KindByBase("Class")}, c));
    } else if (n == "ItemRef") {
      pugi::xml_document wrapper;
      auto holder = wrapper.append_child("ItemRef");
      for (auto part : c.children()) holder.append_copy(part);
      q.fragments.push_back(RefFragments(co, "ItemRef", KindsOf(Family::Item), holder));
    } else if (n == "AccountType" || n == "PaymentMethodType") {
      if (q.fragments.empty() || q.fragments.back().empty() || q.fragments.back().front().find(std::string(n)) == std::string::npos)
        q.fragments.emplace_back();
      q.fragments.back().push_back("<" + std::string(n) + ">" + v + "</" + std::string(n) + ">");
    } else if (n == "DoneStatus") {
      if (v == "DoneOnly") q.fragments.push_back({"<IsDone>true</IsDone>"});
      if (v == "NotDoneOnly") q.fragments.push_back({"<IsDone>false</IsDone>"});
    }
  }
  if (std::string_view(rq.name()) == "ToDoQueryRq" && !rq.child("DoneStatus") && !rq.child("ListID"))
    q.fragments.push_back({"<IsDone>false</IsDone>"});
  if (active == "ActiveOnly") q.Add("is_active = 1");
  else if (active == "InactiveOnly") q.Add("is_active = 0");
}

struct Page {
  std::vector<std::string> include, owners;
};

void WriteRow(Company& co, const Page& page, const Record& r, std::string& out) {
  WriteRecord(co, r.listId, r.ret, page.include, page.owners, out);
}

void HandleQuery(Company& co, const Request& rq, Reply& reply, const Kinds& kinds) {
  pugi::xml_node node = rq.node;
  std::string iterator = std::string(Trim(node.attribute("iterator").value()));
  std::string metaData = std::string(Trim(node.attribute("metaData").value()));
  bool countOnly = metaData == "MetaDataOnly";
  Page page{ChildTexts(node, "IncludeRetElement"), ChildTexts(node, "OwnerID")};
  long long maxReturned = node.child("MaxReturned") ? node.child("MaxReturned").text().as_llong() : -1;
  if (maxReturned == 0 || maxReturned < -1)
    throw StatusError{3210, "The \"MaxReturned\" field has an invalid value " + Quote(node.child("MaxReturned").text().get()) + "."};

  if (iterator == "Continue" || iterator == "Stop") {
    std::string id = std::string(Trim(node.attribute("iteratorID").value()));
    auto& open = co.Iterators();
    auto it = open.find(id);
    if (it == open.end() || it->second.requestName != rq.name)
      throw StatusError{3391, "The iterator ID " + Quote(id) + " is invalid. It is not known, it has already run to its "
                              "end or been stopped, or it was started by another kind of request."};
    if (iterator == "Stop") {
      open.erase(it);
      Attr(reply, "iteratorRemainingCount", "0");
      Attr(reply, "iteratorID", id);
      return;
    }
    OpenIterator& state = it->second;
    std::size_t take = maxReturned < 0 ? state.rowIds.size() : std::min<std::size_t>(state.rowIds.size(), static_cast<std::size_t>(maxReturned));
    Page continued{state.include, state.owners};
    int written = 0;
    for (std::size_t i = 0; i < take; ++i)
      if (auto r = co.Data().ByRowId(state.rowIds[i])) {
        WriteRow(co, continued, *r, reply.body);
        ++written;
      }
    state.rowIds.erase(state.rowIds.begin(), state.rowIds.begin() + static_cast<std::ptrdiff_t>(take));
    std::size_t remaining = state.rowIds.size();
    if (remaining == 0) open.erase(it);
    Attr(reply, "iteratorRemainingCount", std::to_string(remaining));
    Attr(reply, "iteratorID", id);
    if (written == 0) {
      reply.status = 1;
      reply.message = kNoMatchText;
    }
    return;
  }

  std::vector<Record> found;
  std::vector<std::int64_t> rest;  // rows beyond the first page of an iterator
  std::size_t total = 0;
  auto listIds = ChildTexts(node, "ListID");
  auto fullNames = ChildTexts(node, "FullName");
  if (!listIds.empty() || !fullNames.empty()) {
    std::string missing;
    for (auto& id : listIds) {
      if (auto r = FindById(co, kinds, id)) found.push_back(std::move(*r));
      else if (missing.empty()) missing = id;
    }
    for (auto& name : fullNames) {
      if (auto r = FindByName(co, kinds, name)) found.push_back(std::move(*r));
      else if (missing.empty()) missing = name;
    }
    total = found.size();
    if (!missing.empty()) {
      reply.status = 500;
      reply.message = NotFullyCompletedText(missing);
    }
    if (iterator == "Start" && maxReturned >= 0 && found.size() > static_cast<std::size_t>(maxReturned)) {
      for (std::size_t i = static_cast<std::size_t>(maxReturned); i < found.size(); ++i) rest.push_back(found[i].rowId);
      found.resize(static_cast<std::size_t>(maxReturned));
    }
  } else {
    Query q;
    BuildFilters(co, node, q);
    // Ids come from the indexes alone unless a filter must look into the stored record.
    bool needRet = !q.fragments.empty();
    std::string sql = std::string("SELECT id") + (needRet ? ", ret" : "") + " FROM records WHERE kind IN (";
    std::string groups;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
      sql += (i ? "," : "") + std::to_string(kinds[i]->code);
      std::string g = std::to_string(kinds[i]->GroupCode());
      if (groups.find("," + g + ",") == std::string::npos) groups += "," + g + ",";
    }
    std::string groupList = groups.substr(1, groups.size() - 2);
    for (std::size_t at; (at = groupList.find(",,")) != std::string::npos;) groupList.replace(at, 2, ",");
    sql += ")";
    if (q.byName) sql += " AND name_group IN (" + groupList + ")";  // lets the unique name index serve
    sql += q.where + " ORDER BY sort_group, name_key, id";
    bool limited = iterator != "Start" && !countOnly && maxReturned >= 0 && !needRet;
    if (limited) sql += " LIMIT " + std::to_string(maxReturned);
    auto& s = co.Data().Db().Prepare(sql);
    int i = 1;
    for (auto& b : q.binds) {
      if (auto text = std::get_if<std::string>(&b)) s.Bind(i++, *text);
      else s.Bind(i++, std::get<std::int64_t>(b));
    }
    std::vector<std::int64_t> firstPage;
    while (s.Step()) {
      if (needRet && !q.Matches(s.Text(1))) continue;
      ++total;
      if (countOnly) continue;
      if (maxReturned < 0 || firstPage.size() < static_cast<std::size_t>(maxReturned)) firstPage.push_back(s.Int(0));
      else if (iterator == "Start") rest.push_back(s.Int(0));
      else break;
    }
    s.Reset();
    for (auto id : firstPage)
      if (auto r = co.Data().ByRowId(id)) found.push_back(std::move(*r));
    if (total == 0) {
      reply.status = 1;
      reply.message = kNoMatchText;
    }
  }
  if (!metaData.empty() && metaData != "NoMetaData") Attr(reply, "retCount", std::to_string(total));
  if (!countOnly)
    for (auto& r : found) WriteRow(co, page, r, reply.body);
  if (iterator == "Start") {
    std::string id = NewIteratorId();
    Attr(reply, "iteratorRemainingCount", std::to_string(rest.size()));
    Attr(reply, "iteratorID", id);
    if (!rest.empty()) co.Iterators()[id] = OpenIterator{std::string(rq.name), std::move(rest), page.include, page.owners};
  }
}

void HandleListDel(Company& co, const Request& rq, Reply& reply) {
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

void HandleListDeletedQuery(Company& co, const Request& rq, Reply& reply) {
  auto types = ChildTexts(rq.node, "ListDelType");
  std::int64_t from = INT64_MIN, to = INT64_MAX;
  if (auto range = rq.node.child("DeletedDateRangeFilter")) {
    if (auto f = range.child("FromDeletedDate")) from = ParseDateTime(f.text().get(), false);
    if (auto t = range.child("ToDeletedDate")) to = ParseDateTime(t.text().get(), true);
  }
  auto include = ChildTexts(rq.node, "IncludeRetElement");
  auto rows = co.Data().Deleted(types, from, to);
  for (auto& d : rows) {
    std::string ret = "<ListDeletedRet>";
    AppendElement(ret, "ListDelType", d.delType);
    AppendElement(ret, "ListID", d.listId);
    AppendElement(ret, "TimeCreated", DateTimeText(d.timeCreated));
    AppendElement(ret, "TimeDeleted", DateTimeText(d.timeDeleted));
    if (!d.fullName.empty()) AppendElement(ret, "FullName", d.fullName);
    ret += "</ListDeletedRet>";
    WriteRecord(co, {}, ret, include, {}, reply.body);
  }
  if (rows.empty()) {
    reply.status = 1;
    reply.message = kNoMatchText;
  }
}

}  // namespace

void AddListHandlers(std::map<std::string, Handler, std::less<>>& table) {
  const Declarations& declared = Declarations::Get();
  for (auto& kind : ListKinds()) {
    const ListKind* k = &kind;
    if (k->add) table[k->addRq] = [k](Company& co, const Request& rq, Reply& r) { HandleAdd(co, rq, r, *k); };
    if (k->mod) table[k->modRq] = [k](Company& co, const Request& rq, Reply& r) { HandleMod(co, rq, r, *k); };
    if (declared.Request(k->queryRq))
      table[k->queryRq] = [k](Company& co, const Request& rq, Reply& r) { HandleQuery(co, rq, r, {k}); };
  }
  auto combined = [&](const char* name, Family family) {
    Kinds kinds = KindsOf(family);
    table[name] = [kinds](Company& co, const Request& rq, Reply& r) { HandleQuery(co, rq, r, kinds); };
  };
  combined("ItemQueryRq", Family::Item);
  combined("EntityQueryRq", Family::Entity);
  combined("TermsQueryRq", Family::Terms);
  table["ListDelRq"] = HandleListDel;
  table["ListDeletedQueryRq"] = HandleListDeletedQuery;
}

}  // namespace brenvale::rqp::detail
