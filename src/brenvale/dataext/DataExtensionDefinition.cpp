#include "brenvale/dataext/DataExtensionDefinition.hpp"

#include <algorithm>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/model/DataExtObject.hpp"
#include "brenvale/qbxml/Dom.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale {
namespace {

struct F {
  static constexpr FieldDef OwnerID = field::Text("OwnerID").FixedAfterAdd();
  static constexpr FieldDef DataExtID = field::Int("DataExtID");
  static constexpr FieldDef DataExtName = field::Text("DataExtName");
  // In a modify request: the name QuickBooks keeps the definition under, then the new one.
  static constexpr FieldDef KeptName = field::Own("DataExtName");
  static constexpr FieldDef DataExtNewName = field::Own("DataExtNewName");
  static constexpr FieldDef DataExtType = field::Enum("DataExtType", zqeDataExtDataTypes).FixedAfterAdd();
  // Every kind assigned (in a modify request: those assigned since it was read), and in a modify
  // request the kinds taken away.
  static constexpr FieldDef AssignToObject = field::Own("AssignToObject");
  static constexpr FieldDef RemoveFromObject = field::Own("RemoveFromObject");
  static constexpr FieldDef DataExtListRequire = field::Bool("DataExtListRequire");
  static constexpr FieldDef DataExtTxnRequire = field::Bool("DataExtTxnRequire");
  static constexpr FieldDef DataExtFormatString = field::Text("DataExtFormatString");
};
constexpr auto kFields =
    ListFields(F::OwnerID, F::DataExtID, F::DataExtName, F::KeptName, F::DataExtNewName, F::DataExtType,
               F::AssignToObject, F::RemoveFromObject, F::DataExtListRequire, F::DataExtTxnRequire,
               F::DataExtFormatString);
constexpr auto kAdd = kFields.Order(F::OwnerID, F::DataExtName, F::DataExtType, F::AssignToObject);
constexpr auto kMod =
    kFields.Order(F::OwnerID, F::KeptName, F::DataExtNewName, F::AssignToObject, F::RemoveFromObject);
constexpr auto kRead = kFields.Order(F::OwnerID, F::DataExtID, F::DataExtName, F::DataExtType, F::AssignToObject,
                                     F::DataExtListRequire, F::DataExtTxnRequire, F::DataExtFormatString);
constexpr Rule kRules[] = {kFields.NotEmpty(F::DataExtName, 1012, "Name"),
                           kFields.MaxLength(F::DataExtName, 31, 1013, "Name")};
// Known by owner and name: no ListID, no list of its own, queried by owner or assigned kind only,
// deleted by its own request.
constexpr ListFacts kFacts{.nameField = kFields.Id(F::DataExtName),
                           .queries = kQueryNone,
                           .deletable = false,
                           .modifiedByName = true};
constexpr RecordDecl kDecl{.label = "DataExtensionDefinition",
                           .xmlName = "DataExtDef",
                           .objectType = zqObjectTypeDataExtDef,
                           .fields = kFields.fields,
                           .add = kAdd,
                           .mod = kMod,
                           .read = kRead,
                           .rules = kRules,
                           .list = &kFacts};

constexpr FieldId kOwner = kFields.Id(F::OwnerID);
constexpr FieldId kDataExtName = kFields.Id(F::DataExtName);
constexpr FieldId kType = kFields.Id(F::DataExtType);
constexpr FieldId kKeptName = kFields.Id(F::KeptName);
constexpr FieldId kNewName = kFields.Id(F::DataExtNewName);
constexpr FieldId kAssign = kFields.Id(F::AssignToObject);
constexpr FieldId kRemove = kFields.Id(F::RemoveFromObject);

bool IsPublicOwner(std::string_view owner) { return owner.empty() || owner == "0"; }

// The kinds QuickBooks' own custom fields go on.
bool TakesPublicFields(zqEnumListObjectType type) {
  return type == zqObjectTypeCustomer || type == zqObjectTypeVendor || type == zqObjectTypeEmployee ||
         type == zqObjectTypeItem;
}

}  // namespace

DataExtensionDefinition::DataExtensionDefinition() : ListRecord(Declaration()) {
  const std::string& registered = CurrentSession().dataExtOwnerID;
  SetText(kOwner, registered.empty() ? std::string_view("0") : std::string_view(registered));
  SetEnum(kType, qbDataExtTypeSTR255TYPE);
}

const RecordDecl& DataExtensionDefinition::Declaration() { return kDecl; }

std::string DataExtensionDefinition::OwnerId() const { return Text(kOwner); }

void DataExtensionDefinition::OwnerId(std::string_view value) {
  if (ObjectState() != zqObjectStateNew) Raise(1002, Label());
  if (IsPublicOwner(value)) {
    const bool fits = DataType() == qbDataExtTypeSTR255TYPE &&
                      std::all_of(assigned_.begin(), assigned_.end(), TakesPublicFields);
    if (!fits) Raise(2801, Label());
  }
  SetText(kOwner, value.empty() ? std::string_view("0") : value);
}

qbEnumDataExtDataType DataExtensionDefinition::DataType() const {
  return static_cast<qbEnumDataExtDataType>(EnumCode(kType));
}

void DataExtensionDefinition::DataType(qbEnumDataExtDataType value) {
  if (ObjectState() != zqObjectStateNew) Raise(1002, Label());
  if (value != qbDataExtTypeSTR255TYPE) RequireApplicationField();
  SetEnum(kType, static_cast<Integer>(value));
}

Long DataExtensionDefinition::DataExtID() const { return static_cast<Long>(Int(kFields.Id(F::DataExtID))); }

void DataExtensionDefinition::RequireApplicationField() const {
  if (!IsPublicOwner(TextView(kOwner))) return;
  if (CurrentSession().dataExtOwnerID.empty()) Raise(2802, Label());
  Raise(2801, Label());
}

// --- the fields it keeps itself -----------------------------------------------------------------

void DataExtensionDefinition::AfterRead() {
  assigned_.kept_ = assigned_.reading_;
  assigned_.current_ = std::move(assigned_.reading_);
  assigned_.reading_.clear();
  assigned_.held_ = true;
  keptName_ = Text(kDataExtName);
}

void DataExtensionDefinition::ReadOwnField(FieldId id, const DomNode& node) {
  if (id != kAssign) return;
  const DataExtObject object = DataExtObjectNamed(node.Text());
  auto& reading = assigned_.reading_;
  if (object.form != DataExtRefForm::None && std::find(reading.begin(), reading.end(), object.type) == reading.end())
    reading.push_back(object.type);
}

void DataExtensionDefinition::WriteOwnField(xmlBldr& b, FieldId id, const WriteContext& context) const {
  auto write = [&](std::string_view tag, const std::vector<zqEnumListObjectType>& kinds) {
    for (zqEnumListObjectType kind : kinds) b.CreateElement(tag, DataExtObjectOf(kind).tag);
  };
  const std::string_view name = TextView(kDataExtName);
  if (id == kKeptName) {
    b.CreateElement("DataExtName", keptName_.empty() ? name : std::string_view(keptName_));
  } else if (id == kNewName) {
    if (!keptName_.empty() && name != keptName_) b.CreateElement("DataExtNewName", name);
  } else if (id == kAssign) {
    write("AssignToObject", context.form == Form::Mod ? assigned_.Added() : assigned_.current_);
  } else if (id == kRemove && context.form == Form::Mod) {
    write("RemoveFromObject", assigned_.Removed());
  }
}

std::string DataExtensionDefinition::OwnFieldText(FieldId id) const {
  if (id == kKeptName) return keptName_;
  if (id == kNewName) return keptName_.empty() || keptName_ == TextView(kDataExtName) ? std::string() : Text(kDataExtName);
  if (id == kAssign) return assigned_.Text();
  if (id == kRemove) {
    std::string out;
    for (zqEnumListObjectType kind : assigned_.Removed())
      out.append(out.empty() ? "" : ",").append(DataExtObjectOf(kind).tag);
    return out;
  }
  return {};
}

void DataExtensionDefinition::SetOwnFieldText(FieldId id, std::string_view text) {
  if (id == kKeptName || id == kNewName) return Name(text);
  if (id == kAssign) return assigned_.AddText(text);
  if (id == kRemove) return assigned_.RemoveText(text);
  ListRecord::SetOwnFieldText(id, text);
}

}  // namespace brenvale
