#include "brenvale/model/RecordSchema.hpp"

#include <stdexcept>

namespace brenvale {

RecordSchema::RecordSchema(SchemaSpec decl) : spec_(std::move(decl)) {
  fields_ = {
      {kListID, "ListID", FieldKind::Text},
      {kEditSequence, "EditSequence", FieldKind::Text},
      {kTimeCreated, "TimeCreated", FieldKind::DateTime},
      {kTimeModified, "TimeModified", FieldKind::DateTime},
      {kName, "Name", FieldKind::Text},
      {kFullName, "FullName", FieldKind::Text},
      {kIsActive, "IsActive", FieldKind::Bool},
      {kParentRef, "ParentRef", FieldKind::Ref, {}, false, zqeObjectState, spec_.listType},
      {kSublevel, "Sublevel", FieldKind::Int},
  };
  for (const FieldDef& f : spec_.fields) {
    if (f.id != fields_.size())
      throw std::logic_error(spec_.label + ": field " + f.tag + " is declared out of order");
    fields_.push_back(f);
  }
  for (const auto& t : spec_.add) add_.push_back(IdOf(t));
  for (const auto& t : spec_.mod) mod_.push_back(IdOf(t));
  for (FieldId id : {kEditSequence, kIsActive, kListID, kTimeCreated, kTimeModified}) read_[fields_[id].tag] = id;
  if (spec_.readsName) read_["Name"] = kName;
  if (spec_.hierarchical)
    for (FieldId id : {kParentRef, kFullName, kSublevel}) read_[fields_[id].tag] = id;
  for (const auto& t : spec_.read) read_[t] = IdOf(t);
  for (const Rule& r : spec_.rules)
    if (!r.tag.empty()) IdOf(r.tag);
}

FieldId RecordSchema::IdOf(std::string_view tag) const {
  for (const FieldDef& f : fields_)
    if (f.tag == tag) return f.id;
  throw std::logic_error(spec_.label + ": no field " + std::string(tag));
}

int RecordSchema::ReadField(std::string_view tag) const {
  auto it = read_.find(tag);
  return it == read_.end() ? -1 : it->second;
}

}  // namespace brenvale
