#include "brenvale/pricing/PriceLevel.hpp"

#include "brenvale/core/zkErrors.hpp"

namespace brenvale {
namespace {

bool FixedForm(const WriteContext&, const RecordCore& level) {
  return static_cast<const PriceLevel&>(level).IsFixedPercentage();
}
bool PerItemForm(const WriteContext& context, const RecordCore& level) { return !FixedForm(context, level); }

// --- one item's price ---------------------------------------------------------------------------

struct I {
  static constexpr FieldDef ItemRef = field::Ref("ItemRef", zqListTypeItem);
  static constexpr FieldDef CustomPrice = field::Price("CustomPrice").Choice(1);
  static constexpr FieldDef CustomPricePercent = field::Price("CustomPricePercent").Choice(1);
};
constexpr auto kItemFields = Fields(I::ItemRef, I::CustomPrice, I::CustomPricePercent);
constexpr auto kItemBody = kItemFields.Order(I::ItemRef, I::CustomPrice, I::CustomPricePercent);
// An entry without an item, or with one QuickBooks does not have.
constexpr Rule kItemRules[] = {kItemFields.Exists(I::ItemRef, 2001, "Item").EmptyFails()};
constexpr RecordDecl kItemDecl{.label = "levelPerItem",
                               .fields = kItemFields.fields,
                               .add = kItemBody,
                               .mod = kItemBody,
                               .read = kItemBody,
                               .rules = kItemRules,
                               .addTag = "PriceLevelPerItem",
                               .modTag = "PriceLevelPerItem",
                               .make = [](const RecordDecl&) -> RecordCore* { return new levelPerItem(); }};
constexpr FieldId kPrice = kItemFields.Id(I::CustomPrice);
constexpr FieldId kPercent = kItemFields.Id(I::CustomPricePercent);

// --- the level ------------------------------------------------------------------------------------

struct F {
  // Reported by QuickBooks, never written: the form of the pricing part says it.
  static constexpr FieldDef PriceLevelType = field::Text("PriceLevelType");
  static constexpr FieldDef PriceLevelFixedPercentage = field::Price("PriceLevelFixedPercentage").When(FixedForm);
  static constexpr FieldDef PriceLevelPerItem =
      field::Children("PriceLevelPerItemRet", &levelPerItem::Declaration).When(PerItemForm);
};
constexpr auto kFields = ListFields(F::PriceLevelType, F::PriceLevelFixedPercentage, F::PriceLevelPerItem);
constexpr auto kAdd =
    kFields.Order(ListBase::Name, ListBase::IsActive, F::PriceLevelFixedPercentage, F::PriceLevelPerItem);
// A new name is written too: without it a renamed level would be sent unchanged.
constexpr auto kMod = kAdd;
constexpr auto kRead = ListRead(kFields, F::PriceLevelType, F::PriceLevelFixedPercentage, F::PriceLevelPerItem);
constexpr ListFacts kFacts{.listType = zqListTypePriceLevel};
constexpr FieldId kType = kFields.Id(F::PriceLevelType);
constexpr FieldId kFixed = kFields.Id(F::PriceLevelFixedPercentage);
constexpr FieldId kPerItem = kFields.Id(F::PriceLevelPerItem);

}  // namespace

struct PriceLevelDecl {
  static constexpr Rule kRules[] = {kFields.NotEmpty(ListBase::Name, 1012, "Name"),
                                    kFields.MaxLength(ListBase::Name, 31, 1013, "Name"),
                                    rule::Own<&PriceLevel::CheckItems>()};
  static constexpr RecordDecl kDecl{.label = "PriceLevel",
                                    .xmlName = "PriceLevel",
                                    .objectType = zqObjectTypePriceLevel,
                                    .fields = kFields.fields,
                                    .add = kAdd,
                                    .mod = kMod,
                                    .read = kRead,
                                    .rules = kRules,
                                    .list = &kFacts};
};

// --- levelPerItem -----------------------------------------------------------------------------------

const RecordDecl& levelPerItem::Declaration() { return kItemDecl; }
zkListObjectRef levelPerItem::ItemRef() const { return Ref(kItemFields.Id(I::ItemRef)); }
std::string levelPerItem::Item() const { return std::string(RefFullName(kItemFields.Id(I::ItemRef))); }
void levelPerItem::Item(std::string_view fullName) { SetRefName(kItemFields.Id(I::ItemRef), fullName); }
Single levelPerItem::CustomPrice() const { return static_cast<Single>(Number(Has(kPercent) ? kPercent : kPrice)); }
void levelPerItem::CustomPrice(Single value) { SetNumber(CustomPriceIsPercent() ? kPercent : kPrice, value); }
bool levelPerItem::CustomPriceIsPercent() const { return Has(kPercent) || (!Has(kPrice) && percentWanted_); }

void levelPerItem::CustomPriceIsPercent(bool value) {
  percentWanted_ = value;
  const FieldId from = value ? kPrice : kPercent;
  if (Has(from)) SetNumber(value ? kPercent : kPrice, Number(from));  // the choice clears `from`
}

// --- PriceLevel -------------------------------------------------------------------------------------

const RecordDecl& PriceLevel::Declaration() { return PriceLevelDecl::kDecl; }
std::string PriceLevel::PriceLevelType() const { return Text(kType); }
void PriceLevel::PriceLevelType(std::string_view value) { SetText(kType, value); }
bool PriceLevel::IsFixedPercentage() const {
  const std::string_view type = TextView(kType);
  return type == "FixedPercentage" || (type.empty() && Has(kFixed));
}
double PriceLevel::PriceLevelFixedPercentage() const { return Number(kFixed); }
void PriceLevel::PriceLevelFixedPercentage(double value) { SetNumber(kFixed, value); }
levelsPerItem PriceLevel::PriceLevelsPerItem() { return levelsPerItem(ChildrenOf(kPerItem)); }

void PriceLevel::CheckItems(zkErrors& errors, ValidateContext& context) {
  const ChildListBase* entries = FindChildren(kPerItem);
  if (!entries || IsFixedPercentage()) return;
  std::size_t position = 0;
  for (const auto& entry : *entries) {
    ++position;
    if (entry->ValidateValues(context)) continue;
    for (const zkError& e : entry->Errors()) errors.Add(e.Number(), e.Field() + " " + std::to_string(position), e.Description());
  }
}

}  // namespace brenvale
