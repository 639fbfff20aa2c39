#pragma once
// Every QuickBooks list the engine keeps, as data: its element names, where its names must be
// unique, which lists a reference element points into, and the defaults QuickBooks fills in.
// The fields of each kind (types, lengths, order) are declared in ListKinds.cpp; the generic handlers of
// ListRequests.cpp serve every kind from this table.
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "brenvale/rqp/detail/Declarations.hpp"

namespace brenvale::rqp::detail {

// Lists whose names share one namespace.
enum class NameGroup : int { Own = 0, Names = 1, Items = 2, Terms = 3 };

// The combined queries a kind takes part in.
enum class Family : int { None, Entity, Item, Terms };

struct ListKind {
  int code = 0;                  // stored in company files: never renumber
  std::string_view base;         // "Customer": CustomerAddRq, CustomerRet, ListDelType Customer
  std::string_view label;        // how messages name one record: "Customer", "Sales Rep"
  NameGroup group = NameGroup::Own;
  Family family = Family::None;
  std::string_view nameField = "Name";  // "Initial" for sales reps, "" for to-dos
  std::vector<std::pair<std::string_view, std::string_view>> defaults;  // Ret children filled on add

  // Derived from the declarations at start-up.
  std::string retName, addRq, modRq, queryRq;
  const Decl* ret = nullptr;
  const Decl* add = nullptr;   // the XAdd body, when QuickBooks has XAddRq
  const Decl* mod = nullptr;   // the XMod body, when QuickBooks has XModRq
  bool deletable = false;      // a ListDelType value
  bool hierarchical = false;   // has ParentRef and Sublevel

  int GroupCode() const { return group == NameGroup::Own ? 100 + code : static_cast<int>(group); }
};

const std::vector<ListKind>& ListKinds();
const ListKind* KindByBase(std::string_view base);
const ListKind* KindByCode(int code);
std::vector<const ListKind*> KindsOf(Family family);

// The kinds a reference element may name ("ClassRef" -> Class; "TermsRef" -> both terms kinds).
// `owner` answers "ParentRef" (its own kind). Empty when the engine does not check that reference.
std::vector<const ListKind*> RefTargets(std::string_view refElement, const ListKind* owner);
// How an invalid-reference message names the target list ("Account", "Item", "Terms").
std::string RefTargetLabel(std::string_view refElement, const std::vector<const ListKind*>& targets);

}  // namespace brenvale::rqp::detail
