#include "brenvale/lists/itemGroupLine.hpp"

#include "brenvale/core/zkErrors.hpp"
#include "brenvale/model/RefCache.hpp"

namespace brenvale {
namespace {

// A member named by its full name is sent by that name alone, as any reference is.
bool NamedByID(const WriteContext&, const RecordCore& line);

struct F {
  static constexpr FieldDef ItemRef = field::Ref("ItemRef", zqListTypeItem);
  static constexpr FieldDef ItemInventoryRef = field::Ref("ItemInventoryRef", zqListTypeItem);
  // A sales-tax group names its members by reference alone: the line is the reference.
  static constexpr FieldDef ListID = field::Text("ListID").When(NamedByID);
  static constexpr FieldDef FullName = field::Text("FullName");
  static constexpr FieldDef Quantity = field::Quantity("Quantity");
  static constexpr FieldDef UnitOfMeasure = field::Text("UnitOfMeasure").Since(7, 0);
};
constexpr auto kFields = Fields(F::ItemRef, F::ItemInventoryRef, F::ListID, F::FullName, F::Quantity, F::UnitOfMeasure);

bool NamedByID(const WriteContext&, const RecordCore& line) { return !line.Has(kFields.Id(F::FullName)); }

RecordCore* Make(const RecordDecl& form) { return new itemGroupLine(form); }

constexpr auto kGroupBody = kFields.Order(F::ItemRef, F::Quantity, F::UnitOfMeasure);
constexpr auto kAssemblyBody = kFields.Order(F::ItemInventoryRef, F::Quantity);
constexpr auto kMemberBody = kFields.Order(F::ListID, F::FullName);

}  // namespace

struct ItemGroupLineForms {
  static constexpr Rule kGroupRules[] = {kFields.Exists(F::ItemRef, 2001, "Item"),
                                         rule::Own<&itemGroupLine::CheckQuantityOfDiscount>()};
  static constexpr Rule kAssemblyRules[] = {kFields.Exists(F::ItemInventoryRef, 2001, "Item")};
  static constexpr Rule kMemberRules[] = {rule::Own<&itemGroupLine::CheckMemberQuantity>()};
  static constexpr RecordDecl kGroup{.label = "itemGroupLine",
                                     .fields = kFields.fields,
                                     .add = kGroupBody,
                                     .mod = kGroupBody,
                                     .read = kGroupBody,
                                     .rules = kGroupRules,
                                     .addTag = "ItemGroupLine",
                                     .modTag = "ItemGroupLine",
                                     .make = Make};
  static constexpr RecordDecl kAssembly{.label = "itemGroupLine",
                                        .fields = kFields.fields,
                                        .add = kAssemblyBody,
                                        .mod = kAssemblyBody,
                                        .read = kAssemblyBody,
                                        .rules = kAssemblyRules,
                                        .addTag = "ItemInventoryAssemblyLine",
                                        .modTag = "ItemInventoryAssemblyLine",
                                        .make = Make};
  static constexpr RecordDecl kMember{.label = "itemGroupLine",
                                      .fields = kFields.fields,
                                      .add = kMemberBody,
                                      .mod = kMemberBody,
                                      .read = kMemberBody,
                                      .rules = kMemberRules,
                                      .addTag = "ItemSalesTaxRef",
                                      .modTag = "ItemSalesTaxRef",
                                      .make = Make};
};

const RecordDecl& itemGroupLine::GroupForm() { return ItemGroupLineForms::kGroup; }
const RecordDecl& itemGroupLine::AssemblyForm() { return ItemGroupLineForms::kAssembly; }
const RecordDecl& itemGroupLine::SalesTaxForm() { return ItemGroupLineForms::kMember; }

FieldId itemGroupLine::ItemField() const {
  if (&Decl() == &ItemGroupLineForms::kAssembly) return kFields.Id(F::ItemInventoryRef);
  if (&Decl() == &ItemGroupLineForms::kMember) return kFields.Id(F::FullName);
  return kFields.Id(F::ItemRef);
}

std::string itemGroupLine::Item() const {
  const FieldId id = ItemField();
  return Decl().Field(id).kind == ValueKind::Ref ? std::string(RefFullName(id)) : Text(id);
}

void itemGroupLine::Item(std::string_view fullName) {
  const FieldId id = ItemField();
  if (Decl().Field(id).kind == ValueKind::Ref) return SetRefName(id, fullName);
  SetText(id, fullName);
  if (Has(kFields.Id(F::ListID))) Unset(kFields.Id(F::ListID));  // the name now says which
}

zkListObjectRef itemGroupLine::ItemRef() const {
  const FieldId id = ItemField();
  if (Decl().Field(id).kind == ValueKind::Ref) return Ref(id);
  return zkListObjectRef(Text(id), zqListTypeItem, Text(kFields.Id(F::ListID)));
}

double itemGroupLine::Quantity() const { return HasQuantity() ? Number(kFields.Id(F::Quantity)) : 1.0; }
void itemGroupLine::Quantity(double value) { SetNumber(kFields.Id(F::Quantity), value); }
bool itemGroupLine::HasQuantity() const { return Has(kFields.Id(F::Quantity)); }
std::string itemGroupLine::UnitOfMeasure() const { return Text(kFields.Id(F::UnitOfMeasure)); }
void itemGroupLine::UnitOfMeasure(std::string_view value) { SetText(kFields.Id(F::UnitOfMeasure), value); }

void itemGroupLine::CheckQuantityOfDiscount(zkErrors& errors, ValidateContext& context) {
  if (!HasQuantity() || !context.refs) return;
  RefEntry found;
  if (context.refs->Find(zqListTypeItem, RefFullName(kFields.Id(F::ItemRef)), &found) == RefAnswer::Found &&
      found.retName == "ItemDiscountRet")
    errors.AddCode(1105, "GroupLine");
}

void itemGroupLine::CheckMemberQuantity(zkErrors& errors, ValidateContext&) {
  if (Quantity() != 1.0) errors.AddCode(1103, "");
}

}  // namespace brenvale
