#include "brenvale/rqp/records/Records.hpp"

#include <algorithm>

#include "brenvale/rqp/protocol/Status.hpp"
#include "brenvale/rqp/protocol/Text.hpp"

namespace brenvale::rqp::detail {
namespace {

const Declarations& S() { return Declarations::Get(); }

// Mod elements that empty a repeated Ret element when true.
constexpr std::pair<std::string_view, std::string_view> kClearers[] = {
    {"ClearItemsInGroup", "ItemGroupLine"},
    {"ClearItemsInGroup", "ItemInventoryAssemblyLine"},
    {"ClearEarnings", "Earnings"},
};

struct Builder {
  Context& co;
  const ListKind& kind;
  bool isAdd;
};

std::string Text(pugi::xml_node n) { return n.text().get(); }

// The Ret element an Add or Mod element lands in: the same name, or the name without "Mod",
// or either with "Ret" (Contacts -> ContactsRet, PriceLevelPerItem -> PriceLevelPerItemRet).
const ChildRule* TargetRule(const Decl& out, std::string_view name) {
  if (auto r = out.Child(name)) return r;
  std::string n(name);
  if (n.ends_with("Mod")) {
    n.resize(n.size() - 3);
    if (auto r = out.Child(n)) return r;
  }
  return out.Child(n + "Ret");
}

// Removes the children of `out` that belong to another branch of a choice `rule` is in.
void RemoveRivals(const Decl& d, pugi::xml_node out, const ChildRule& rule) {
  if (rule.path.empty()) return;
  for (auto e = out.first_child(); e;) {
    auto next = e.next_sibling();
    const ChildRule* other = d.Child(e.name());
    bool rival = false;
    if (other && other != &rule)
      for (auto [c1, a1] : rule.path)
        for (auto [c2, a2] : other->path)
          if (c1 == c2 && a1 != a2 && d.choiceExclusive[static_cast<std::size_t>(c1)]) rival = true;
    if (rival) out.remove_child(e);
    e = next;
  }
}

// Resolves a reference element of the input into `out`: the ListID of the record it names (names
// are filled in when the record is written), or, for a list the engine does not keep, what was
// given. False when the reference is empty (which clears it).
bool ResolveRef(Builder& b, std::string_view refName, pugi::xml_node in, pugi::xml_node out) {
  std::string listId = Text(in.child("ListID"));
  std::string fullName = Text(in.child("FullName"));
  if (listId.empty() && fullName.empty()) return false;
  auto targets = RefTargets(refName, &b.kind);
  if (targets.empty()) {
    if (!listId.empty()) out.append_child("ListID").text().set(listId.c_str());
    if (!fullName.empty()) out.append_child("FullName").text().set(fullName.c_str());
    return true;
  }
  auto found = listId.empty() ? FindByName(b.co, targets, fullName) : FindById(b.co, targets, listId);
  if (!found)
    throw InvalidReference(RefTargetLabel(refName, targets), listId.empty() ? fullName : listId, b.kind.base);
  out.append_child("ListID").text().set(found->listId.c_str());
  return true;
}

void Merge(Builder& b, pugi::xml_node in, const Decl& outDecl, pugi::xml_node out, bool top);

void Fill(Builder& b, pugi::xml_node in, const Decl& td, pugi::xml_node n) {
  if (td.IsRef()) ResolveRef(b, td.name, in, n);
  else if (td.IsComplex()) Merge(b, in, td, n, false);
  else n.text().set(in.text().get());
}

// Applies an Add or Mod element onto a Ret element: simple values replace (an empty one clears),
// single aggregates merge, repeated ones are replaced as a group, references are resolved, and a
// branch of a choice displaces the other branches. Elements without a Ret counterpart (controls
// such as ApplyAccountRefToExistingTxns) are left to the kind's hooks.
void Merge(Builder& b, pugi::xml_node in, const Decl& outDecl, pugi::xml_node out, bool top) {
  std::vector<const ChildRule*> replaced;
  for (auto c : in.children()) {
    if (c.type() != pugi::node_element) continue;
    std::string_view name = c.name();
    if (top && (name == "ListID" || name == "EditSequence")) continue;
    bool cleared = false;
    for (auto [clearer, target] : kClearers)
      if (name == clearer) {
        cleared = true;
        if (Text(c) == "true")
          while (auto e = out.child(std::string(target).c_str())) out.remove_child(e);
      }
    if (cleared) continue;
    const ChildRule* rule = TargetRule(outDecl, name);
    if (!rule) continue;
    const Decl& td = S().At(rule->decl);
    RemoveRivals(outDecl, out, *rule);
    if (rule->maxCount != 1) {
      if (std::find(replaced.begin(), replaced.end(), rule) == replaced.end()) {
        while (auto e = out.child(td.name.c_str())) out.remove_child(e);
        replaced.push_back(rule);
      }
      auto n = out.append_child(td.name.c_str());
      Fill(b, c, td, n);
      if (td.IsComplex() && !n.first_child()) out.remove_child(n);
      continue;
    }
    auto existing = out.child(td.name.c_str());
    if (td.IsRef()) {
      if (existing) out.remove_child(existing);
      auto n = out.append_child(td.name.c_str());
      if (!ResolveRef(b, td.name, c, n)) out.remove_child(n);
    } else if (td.IsComplex()) {
      if (!existing) existing = out.append_child(td.name.c_str());
      Merge(b, c, td, existing, false);
      if (!existing.first_child()) out.remove_child(existing);
    } else {
      std::string value = Text(c);
      if (value.empty()) {
        if (existing) out.remove_child(existing);
      } else {
        if (!existing) existing = out.append_child(td.name.c_str());
        existing.text().set(value.c_str());
      }
    }
  }
}

// Orders children as declared, recursively, and gives nested Ret aggregates (contacts, notes)
// the identity fields QuickBooks assigns them.
void Canonicalize(Builder& b, const Decl& top, pugi::xml_node root) {
  OrderChildren(top, root, [&](const Decl& d, pugi::xml_node node) {
    if (node == root || !d.name.ends_with("Ret")) return;
    auto fill = [&](const char* name, auto value) {
      if (d.Child(name) && !node.child(name)) node.append_child(name).text().set(value().c_str());
    };
    fill("ListID", [&] { return b.co.NewListId(); });
    fill("TimeCreated", [&] { return b.co.NowText(); });
    fill("TimeModified", [&] { return b.co.NowText(); });
    fill("EditSequence", [&] { return b.co.NextEditSequence(); });
    fill("Date", [&] { return b.co.TodayText(); });
    if (d.Child("NoteID") && !node.child("NoteID")) {
      int next = 1;
      for (auto sib : node.parent().children(node.name()))
        if (auto id = sib.child("NoteID")) next = std::max(next, id.text().as_int() + 1);
      node.append_child("NoteID").text().set(next);
    }
  });
}

// The references of a Ret element to records the engine keeps: (element, ListID), at any depth.
void CollectRefs(const ListKind& kind, const Decl& d, pugi::xml_node node, FieldValues& out) {
  for (auto c : node.children()) {
    if (c.type() != pugi::node_element) continue;
    const ChildRule* rule = d.Child(c.name());
    if (!rule) continue;
    const Decl& cd = S().At(rule->decl);
    if (cd.IsRef()) {
      auto id = c.child("ListID");
      if (id && !RefTargets(cd.name, &kind).empty()) out.emplace_back(cd.name, id.text().get());
    } else if (cd.IsComplex()) {
      CollectRefs(kind, cd, c, out);
    }
  }
}

void WriteIndex(Context& co, const ListKind& kind, pugi::xml_node ret, std::int64_t rowId, bool fresh) {
  FieldValues refs, values;
  CollectRefs(kind, *kind.ret, ret, refs);
  for (auto field : kind.indexed) {
    std::string name(field);
    if (auto v = ret.child(name.c_str())) values.emplace_back(name, v.text().get());
  }
  co.Data().SetIndex(rowId, refs, values, fresh);
}

// Name, full name, level and uniqueness of the record; throws StatusError.
void ApplyNames(Builder& b, pugi::xml_node ret, Record& r, const Record* old) {
  const ListKind& kind = b.kind;
  if (kind.nameField.empty()) return;
  std::string name = Text(ret.child(std::string(kind.nameField).c_str()));
  auto refuse = [&](int code, const std::string& why) { throw ListError(kind, b.isAdd, name, code, why); };
  if (Trim(name).empty()) refuse(3180, "The name of the list element cannot be blank.");
  if (name.find(':') != std::string::npos) refuse(3180, "The name of the list element cannot contain a colon (:).");
  std::string fullName = name;
  r.parentId.clear();
  r.sublevel = 0;
  if (kind.hierarchical) {
    std::string parentId = Text(ret.child("ParentRef").child("ListID"));
    if (!parentId.empty()) {
      auto parent = b.co.Data().ById(parentId);
      if (!parent) throw InvalidReference(kind.label, parentId, kind.base);
      for (auto p = parent; p; p = p->parentId.empty() ? std::nullopt : b.co.Data().ById(p->parentId))
        if (old && p->listId == old->listId) refuse(3170, "A list element cannot be placed under itself or its sub-elements.");
      fullName = parent->fullName + ":" + name;
      r.parentId = parent->listId;
      r.sublevel = parent->sublevel + 1;
    }
    if (kind.ret->Child("Sublevel")) SetChild(ret, "Sublevel", std::to_string(r.sublevel));
  }
  if (kind.ret->Child("FullName")) SetChild(ret, "FullName", fullName);
  r.fullName = fullName;
  r.nameKey = NameKey(fullName);
  auto clash = b.co.Data().ByName(r.nameGroup, r.nameKey);
  if (clash && clash->rowId != r.rowId) throw NameInUse(fullName);
}

std::string StoreText(pugi::xml_node ret) {
  std::string s;
  Serialize(ret, s);
  return s;
}

// Rewrites a stored record through `edit`, keeping its identity and edit sequence.
template <class Edit>
void Patch(Context& co, Record r, Edit edit) {
  pugi::xml_document doc;
  doc.load_string(r.ret.c_str());
  edit(r, doc.first_child());
  r.ret = StoreText(doc.first_child());
  co.Data().Update(r);
}

// After a record's full name changed: its sub-records' full names and levels. Records that refer to
// it keep its ListID and show its new name when they are written.
void Renamed(Context& co, const Record& r) {
  for (auto& child : co.Data().Children(r.listId)) {
    const ListKind* k = KindByCode(child.kind);
    Record updated;
    Patch(co, child, [&](Record& c, pugi::xml_node ret) {
      c.fullName = r.fullName + ":" + Text(ret.child(std::string(k->nameField).c_str()));
      c.nameKey = NameKey(c.fullName);
      c.sublevel = r.sublevel + 1;
      auto clash = co.Data().ByName(c.nameGroup, c.nameKey);
      if (clash && clash->rowId != c.rowId) throw NameInUse(c.fullName);
      SetChild(ret, "FullName", c.fullName);
      SetChild(ret, "Sublevel", std::to_string(c.sublevel));
      Builder b{co, *k, false};
      Canonicalize(b, *k->ret, ret);
      updated = c;
    });
    updated.ret.clear();
    Renamed(co, updated);
  }
}

void Deactivated(Context& co, const Record& r) {
  for (auto& child : co.Data().Children(r.listId)) {
    if (!child.active) continue;
    Patch(co, child, [&](Record& c, pugi::xml_node ret) {
      c.active = false;
      SetChild(ret, "IsActive", "false");
    });
    Deactivated(co, child);
  }
}

// The address blocks QuickBooks prints from an address: its lines, then "City, State PostalCode",
// then the country, five lines at most.
void FillAddressBlocks(const Decl& retDecl, pugi::xml_node ret) {
  for (auto& rule : retDecl.children) {
    const std::string& blockName = S().At(rule.decl).name;
    if (!blockName.ends_with("AddressBlock")) continue;
    std::string addressName = blockName.substr(0, blockName.size() - 5);
    if (auto old = ret.child(blockName.c_str())) ret.remove_child(old);
    auto address = ret.child(addressName.c_str());
    if (!address) continue;
    std::vector<std::string> lines;
    for (const char* n : {"Addr1", "Addr2", "Addr3", "Addr4", "Addr5"})
      if (!Text(address.child(n)).empty()) lines.push_back(Text(address.child(n)));
    std::string city = Text(address.child("City"));
    std::string statePostal = Text(address.child("State"));
    if (!Text(address.child("PostalCode")).empty())
      statePostal += (statePostal.empty() ? "" : " ") + Text(address.child("PostalCode"));
    if (!city.empty() && !statePostal.empty()) city += ", ";
    if (!(city + statePostal).empty()) lines.push_back(city + statePostal);
    if (!Text(address.child("Country")).empty()) lines.push_back(Text(address.child("Country")));
    if (lines.empty()) continue;
    auto block = ret.append_child(blockName.c_str());
    for (std::size_t i = 0; i < lines.size() && i < 5; ++i)
      block.append_child(("Addr" + std::to_string(i + 1)).c_str()).text().set(lines[i].c_str());
  }
}

// What QuickBooks computes is kept as an empty element in its place, filled when it is answered.
void Placeholders(const ListKind& kind, pugi::xml_node ret) {
  for (auto& c : kind.computed) {
    std::string name(c.element);
    while (auto e = ret.child(name.c_str())) ret.remove_child(e);
    ret.append_child(name.c_str());
  }
}

void ApplyDefaults(Context& co, const ListKind& kind, pugi::xml_node ret) {
  if (kind.ret->Child("IsActive") && !ret.child("IsActive")) ret.append_child("IsActive").text().set("true");
  for (auto [name, value] : kind.defaults) {
    std::string n(name);
    std::string v = value == "today" ? co.TodayText() : std::string(value);
    if (!ret.child(n.c_str())) ret.append_child(n.c_str()).text().set(v.c_str());
  }
}

void RunHooks(Builder& b, pugi::xml_node in, pugi::xml_node ret, Record& r, bool rebuilding = false) {
  r.sortGroup = b.kind.sortGroup;
  RecordChange change{b.co, b.kind, b.isAdd, in, ret, r, rebuilding};
  for (ChangeHook hook : b.kind.hooks) hook(change);
}

Record Finish(Builder& b, pugi::xml_node ret, Record r, const Record* old) {
  FillAddressBlocks(*b.kind.ret, ret);
  Placeholders(b.kind, ret);
  Canonicalize(b, *b.kind.ret, ret);
  r.active = Text(ret.child("IsActive")) != "false";
  r.ret = StoreText(ret);
  if (old) b.co.Data().Update(r);
  else b.co.Data().Insert(r);
  WriteIndex(b.co, b.kind, ret, r.rowId, old == nullptr);
  return r;
}

}  // namespace

StatusError ListError(const ListKind& kind, bool isAdd, std::string_view name, int code, std::string_view why) {
  return StatusError{code, std::string("There was an error when ") + (isAdd ? "saving" : "modifying") + " a " +
                               std::string(kind.label) + " list, element " + Quote(name) +
                               ".  QuickBooks error message: " + std::string(why)};
}

void SetChild(pugi::xml_node parent, const char* name, const std::string& value) {
  auto e = parent.child(name);
  if (value.empty()) {
    if (e) parent.remove_child(e);
    return;
  }
  if (!e) e = parent.append_child(name);
  e.text().set(value.c_str());
}

std::optional<long long> Amount(pugi::xml_node n) {
  if (!n) return std::nullopt;
  return ParseDecimal(n.text().get());
}

std::optional<Record> FindById(Context& co, const std::vector<const ListKind*>& kinds, std::string_view listId) {
  auto r = co.Data().ById(listId);
  if (!r) return std::nullopt;
  for (auto k : kinds)
    if (k->code == r->kind) return r;
  return std::nullopt;
}

std::optional<Record> FindByName(Context& co, const std::vector<const ListKind*>& kinds, std::string_view fullName) {
  std::string key = NameKey(fullName);
  std::vector<int> groups;
  for (auto k : kinds) {
    if (std::find(groups.begin(), groups.end(), k->GroupCode()) != groups.end()) continue;
    groups.push_back(k->GroupCode());
    auto r = co.Data().ByName(k->GroupCode(), key);
    if (!r) continue;
    for (auto k2 : kinds)
      if (k2->code == r->kind) return r;
  }
  return std::nullopt;
}

Record AddListRecord(Context& co, const ListKind& kind, pugi::xml_node add,
                     const std::vector<std::pair<std::string, std::string>>& extra) {
  Builder b{co, kind, true};
  pugi::xml_document doc;
  auto ret = doc.append_child(kind.retName.c_str());
  Merge(b, add, *kind.ret, ret, true);
  for (auto& [name, value] : extra) SetChild(ret, name.c_str(), value);
  ApplyDefaults(co, kind, ret);
  Record r;
  r.kind = kind.code;
  r.nameGroup = kind.GroupCode();
  r.listId = co.NewListId();  // before the hooks, which may post for the record
  r.timeCreated = r.timeModified = co.Now();
  r.editSequence = co.NextEditSequence();
  SetChild(ret, "ListID", r.listId);
  SetChild(ret, "TimeCreated", co.NowText());
  SetChild(ret, "TimeModified", co.NowText());
  SetChild(ret, "EditSequence", r.editSequence);
  RunHooks(b, add, ret, r);
  ApplyNames(b, ret, r, nullptr);
  return Finish(b, ret, std::move(r), nullptr);
}

Record ModListRecord(Context& co, const ListKind& kind, pugi::xml_node mod) {
  std::string listId = Text(mod.child("ListID"));
  std::string editSequence = Text(mod.child("EditSequence"));
  auto old = co.Data().ById(listId);
  if (!old || old->kind != kind.code) throw NotFound(listId);
  if (old->editSequence != editSequence)
    throw StatusError{3200, "The provided edit sequence " + Quote(editSequence) + " is out-of-date."};
  Builder b{co, kind, false};
  pugi::xml_document doc;
  doc.load_string(old->ret.c_str());
  auto ret = doc.first_child();
  Merge(b, mod, *kind.ret, ret, true);
  Record r = *old;
  RunHooks(b, mod, ret, r);
  ApplyNames(b, ret, r, &*old);
  r.timeModified = co.Now();
  r.editSequence = co.NextEditSequence(old->editSequence);
  SetChild(ret, "TimeModified", co.NowText());
  SetChild(ret, "EditSequence", r.editSequence);
  Record out = Finish(b, ret, std::move(r), &*old);
  if (out.fullName != old->fullName) Renamed(co, out);
  if (old->active && !out.active && kind.hierarchical) Deactivated(co, out);
  return out;
}

DeletedRecord DeleteListRecord(Context& co, const ListKind& kind, std::string_view listId) {
  auto r = co.Data().ById(listId);
  if (!r || r->kind != kind.code) throw NotFound(listId);
  auto refuse = [&](const std::string& why) {
    throw StatusError{3170, "There was an error when deleting a " + std::string(kind.label) + " list, element " +
                                Quote(r->fullName) + ".  QuickBooks error message: " + why};
  };
  if (!co.Data().Children(r->listId).empty()) refuse("This list element has sub-elements; delete or move them first.");
  if (co.Data().InUse(r->listId, r->rowId)) refuse("This object is in use and cannot be deleted.");
  for (DeleteGuard guard : kind.deleteGuards)
    if (auto why = guard(*r)) refuse(*why);
  co.Data().Delete(*r);
  DeletedRecord d{std::string(kind.base), r->listId, r->fullName, r->timeCreated, co.Now()};
  co.Data().AddDeleted(kind.code, d);
  return d;
}

void ReindexRecords(Context& co) {
  for (std::int64_t rowId : co.Data().AllRowIds()) {
    auto r = co.Data().ByRowId(rowId);
    const ListKind* kind = r ? KindByCode(r->kind) : nullptr;
    if (!kind) continue;
    pugi::xml_document doc;
    doc.load_string(r->ret.c_str());
    auto ret = doc.first_child();
    // References to kept records hold their ListID only; the name comes from the record.
    for (auto x : ret.select_nodes(".//*[ListID and FullName]")) {
      pugi::xml_node ref = x.node();
      if (std::string_view(ref.name()).ends_with("Ref") && !RefTargets(ref.name(), kind).empty())
        ref.remove_child("FullName");
    }
    Builder b{co, *kind, false};
    ApplyDefaults(co, *kind, ret);
    Record row = *r;
    RunHooks(b, ret, ret, row, true);
    Placeholders(*kind, ret);
    Canonicalize(b, *kind->ret, ret);
    row.ret = StoreText(ret);
    co.Data().Update(row);
    WriteIndex(co, *kind, ret, row.rowId, false);
  }
}

}  // namespace brenvale::rqp::detail
