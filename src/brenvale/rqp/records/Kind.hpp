#pragma once
// A kind of list record as data: its element names, where its names must be unique, the defaults
// QuickBooks fills in, the values its queries filter on, and hooks for what the kind computes on
// its own. The generic machinery (Records.hpp) serves every kind from this declaration; the kinds
// themselves are declared by the lists.
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <pugixml.hpp>

#include "brenvale/rqp/schema/Declarations.hpp"
#include "brenvale/rqp/store/Store.hpp"

namespace brenvale::rqp::detail {

class Context;
struct ListKind;

// Lists whose names share one namespace.
enum class NameGroup : int { Own = 0, Names = 1, Items = 2, Terms = 3 };

// The combined queries a kind takes part in.
enum class Family : int { None, Entity, Item, Terms };

// What a hook sees of a record being added or modified: the Add or Mod body (`in`), the Ret
// element after the body was merged into it (`ret`), and the row being written (`row`). When a
// stored record is rebuilt after an upgrade of its file, `in` is the record itself and `rebuilding`
// is set: hooks then derive what they derive, and neither refuse nor post.
struct RecordChange {
  Context& co;
  const ListKind& kind;
  bool isAdd;
  pugi::xml_node in;
  pugi::xml_node ret;
  Record& row;
  bool rebuilding = false;
};

// A kind's own rule, run after an Add or Mod body was merged. Throws StatusError to refuse.
using ChangeHook = void (*)(RecordChange&);
// A kind's own reason to refuse deleting a record (QuickBooks' message), or nothing.
using DeleteGuard = std::optional<std::string> (*)(const Record&);

// A Ret element QuickBooks computes rather than keeps (a balance, a quantity on hand): an SQL
// expression over the record's row of `records`, evaluated whenever the record is answered. The
// stored record holds the element empty, in its place; its declared type gives the number's form.
struct Computed {
  std::string_view element;
  std::string sql;
};

struct ListKind {
  int code = 0;                  // stored in company files: never renumber
  std::string_view base;         // "Customer": CustomerAddRq, CustomerRet, ListDelType Customer
  std::string_view label;        // how messages name one record: "Customer", "Sales Rep"
  NameGroup group = NameGroup::Own;
  Family family = Family::None;
  std::string_view nameField = "Name";  // "Initial" for sales reps, "" for to-dos
  std::vector<std::pair<std::string_view, std::string_view>> defaults;  // Ret children filled on add
  std::vector<std::string_view> indexed;  // Ret children kept as index rows for query filters
  int sortGroup = 0;               // where the kind sorts in a combined query (item kinds)
  std::vector<ChangeHook> hooks;
  std::vector<DeleteGuard> deleteGuards;
  std::vector<Computed> computed;
  // References whose targets differ for this kind from every other's ("ItemSalesTaxRef" of a sales
  // tax group names sales tax items only): element, the kinds it may name.
  std::vector<std::pair<std::string_view, std::vector<std::string_view>>> refTargets;

  // Derived from the declarations when the kinds are built.
  std::string retName, addName, modName, addRq, modRq, queryRq;
  const Decl* ret = nullptr;
  const Decl* add = nullptr;   // the XAdd body, when QuickBooks has XAddRq
  const Decl* mod = nullptr;   // the XMod body, when QuickBooks has XModRq
  bool deletable = false;      // a ListDelType value
  bool hierarchical = false;   // has ParentRef and Sublevel
  std::string computedSelect;  // "SELECT id, <computed...> FROM records WHERE id IN <a JSON array>"; empty
                               // without any

  int GroupCode() const { return group == NameGroup::Own ? 100 + code : static_cast<int>(group); }
  // The SQL of a computed element; nullptr when the kind does not compute it.
  const std::string* ComputedSql(std::string_view element) const;
};

// The kinds, as the lists declare them (installed by the engine before any request is answered).
class KindRegistry {
 public:
  static void Install(std::vector<ListKind> kinds);
  static const std::vector<ListKind>& All();
};

const ListKind* KindByBase(std::string_view base);
const ListKind* KindByCode(int code);
std::vector<const ListKind*> KindsOf(Family family);

// The kinds a reference element may name ("ClassRef" -> Class; "TermsRef" -> both terms kinds).
// `owner` answers "ParentRef" (its own kind). Empty when the engine does not keep that list.
std::vector<const ListKind*> RefTargets(std::string_view refElement, const ListKind* owner);
// How an invalid-reference message names the target list ("Account", "Item", "Terms").
std::string RefTargetLabel(std::string_view refElement, const std::vector<const ListKind*>& targets);

}  // namespace brenvale::rqp::detail
