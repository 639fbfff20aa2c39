#include "brenvale/dataext/dataExtAssignedTos.hpp"

#include <algorithm>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/dataext/DataExtensionDefinition.hpp"
#include "brenvale/model/DataExtObject.hpp"

namespace brenvale {
namespace {

// The label of the list's raised errors, spelled as the library has always spelled it.
constexpr std::string_view kSource = "dataExtAssingedTos";

bool Holds(const std::vector<zqEnumListObjectType>& kinds, zqEnumListObjectType kind) {
  return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

// The kinds named in "Customer,Vendor" (blanks around a name are ignored).
std::vector<zqEnumListObjectType> KindsNamed(std::string_view tags) {
  std::vector<zqEnumListObjectType> out;
  while (!tags.empty()) {
    const std::size_t comma = std::min(tags.find(','), tags.size());
    std::string_view tag = tags.substr(0, comma);
    tags.remove_prefix(std::min(comma + 1, tags.size()));
    while (!tag.empty() && tag.front() == ' ') tag.remove_prefix(1);
    while (!tag.empty() && tag.back() == ' ') tag.remove_suffix(1);
    if (tag.empty()) continue;
    const DataExtObject object = DataExtObjectNamed(tag);
    if (object.form == DataExtRefForm::None) Raise(1030, kSource);
    out.push_back(object.type);
  }
  return out;
}

}  // namespace

void dataExtAssignedTos::Add(zqEnumListObjectType ObjectType) {
  const DataExtObject object = DataExtObjectOf(ObjectType);
  if (object.form == DataExtRefForm::None) Raise(1030, kSource);
  // QuickBooks' own custom fields go on customers, vendors, employees and items only.
  if (object.type != zqObjectTypeCustomer && object.type != zqObjectTypeVendor &&
      object.type != zqObjectTypeEmployee && object.type != zqObjectTypeItem)
    definition_->RequireApplicationField();
  if (Holds(current_, object.type)) return;
  current_.push_back(object.type);
  Changed();
}

zqEnumListObjectType dataExtAssignedTos::Item(std::size_t position) const {
  if (position < 1 || position > current_.size()) platform::Raise(platform::kSubscriptOutOfRange, kSource);
  return current_[position - 1];
}

bool dataExtAssignedTos::ItemExists(zqEnumListObjectType ObjectType) const {
  return Holds(current_, DataExtObjectOf(ObjectType).type);
}

void dataExtAssignedTos::Remove(std::size_t position) {
  if (position < 1 || position > current_.size()) platform::Raise(platform::kSubscriptOutOfRange, kSource);
  current_.erase(current_.begin() + static_cast<std::ptrdiff_t>(position - 1));
  Changed();
}

void dataExtAssignedTos::Clear() {
  if (current_.empty()) return;
  current_.clear();
  Changed();
}

zqEnumObjectState dataExtAssignedTos::ObjectState() const {
  if (!held_) return zqObjectStateNew;
  return Added().empty() && Removed().empty() ? zqObjectStateClean : zqObjectStateDirty;
}

std::vector<zqEnumListObjectType> dataExtAssignedTos::Added() const {
  std::vector<zqEnumListObjectType> out;
  for (zqEnumListObjectType kind : current_)
    if (!Holds(kept_, kind)) out.push_back(kind);
  return out;
}

std::vector<zqEnumListObjectType> dataExtAssignedTos::Removed() const {
  std::vector<zqEnumListObjectType> out;
  for (zqEnumListObjectType kind : kept_)
    if (!Holds(current_, kind)) out.push_back(kind);
  return out;
}

void dataExtAssignedTos::Changed() {
  if (held_) definition_->AssignmentsChanged();
}

std::string dataExtAssignedTos::Text() const {
  std::string out;
  for (zqEnumListObjectType kind : current_) out.append(out.empty() ? "" : ",").append(DataExtObjectOf(kind).tag);
  return out;
}

void dataExtAssignedTos::AddText(std::string_view tags) {
  for (zqEnumListObjectType kind : KindsNamed(tags)) Add(kind);
}

void dataExtAssignedTos::RemoveText(std::string_view tags) {
  for (zqEnumListObjectType kind : KindsNamed(tags)) {
    auto at = std::find(current_.begin(), current_.end(), kind);
    if (at == current_.end()) continue;
    current_.erase(at);
    Changed();
  }
}

}  // namespace brenvale
