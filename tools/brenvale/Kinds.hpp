#pragma once
// The list kinds the tool can show, add to and delete from: every kind of the library's one list of
// record kinds. Every command serves every kind through the generic record and collection machinery.
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "brenvale/model/ListCollectionBase.hpp"
#include "brenvale/model/ListRecord.hpp"

namespace brenvale::tool {

struct Kind {
  std::string name;    // "JobType": what the user types (any case, or the plural)
  std::string plural;  // "JobTypes": the collection's name
  const RecordDecl& (*decl)();
  // The master collection of the kind (requires a connection).
  ListCollectionBase& (*master)();
  // A new blank record, filed in the master collection for the next commit; null for a kind
  // QuickBooks does not let a host add.
  ListRecord& (*addNew)();
  // A record of the kind that belongs to no collection: for checking values before connecting;
  // null for the list of a collection of several kinds.
  std::shared_ptr<ListRecord> (*scratch)();
  // For the list of a collection of several kinds (its records are of each): their names.
  std::string members;

  // Whether a record the kind's collection holds is one of this kind.
  bool Holds(const ListRecord& record) const { return &record.Decl() == &decl() || !members.empty(); }
};

// Every registered kind, in the order they are listed to the user.
const std::vector<Kind>& Kinds();
// The kind with that name, else the first with that plural or qbXML name (case and "-"/"_"
// ignored), or null.
const Kind* FindKind(std::string_view name);
// A kind by name, or a usage error that lists the known kinds.
const Kind& RequireKind(std::string_view name);
// "Class, JobType, ..."
std::string KindNames();

// The field a user names in `Field=Value` (the qbXML tag in any case; "Parent" for "ParentRef"),
// among `among` (the fields an add or a modify request writes); -1 when there is none.
int FindField(const RecordDecl& decl, std::span<const FieldId> among, std::string_view name);
// A field inside nested records, named with dots: "BillAddress.City" is the City of the BillAddress
// aggregate. `ids` leads from the record through each aggregate to the field; `field` is its
// declaration.
struct FieldPath {
  std::vector<FieldId> ids;
  const FieldDef* field = nullptr;
  // The path as the record's own tags spell it ("BillAddress.City" for "billaddress.city").
  std::string name;
};
// The field a dotted name gives among the fields a request of `form` (Add or Mod) writes, at every
// level; empty `ids` when there is none.
FieldPath FindFieldPath(const RecordDecl& decl, Form form, std::string_view name);
// The record that holds the field at the end of `path`: `record`, or a nested record of it (made
// when it is not there yet).
RecordCore& HolderOf(RecordCore& record, const FieldPath& path);
// "Name, IsActive, ParentRef, BillAddress.FIELD"
std::string FieldNames(const RecordDecl& decl, std::span<const FieldId> ids);

}  // namespace brenvale::tool
