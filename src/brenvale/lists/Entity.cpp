#include "brenvale/lists/Entity.hpp"

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/KeyedList.hpp"

namespace brenvale {
namespace {
// The entity list spans the name lists: its records are read into the kind each one is, and a name
// is known by its full name (a job's is its customer's full name and its own).
constexpr ListFacts kFacts{.listType = zqListTypeEntity,
                           .hierarchical = true,
                           .key = ListKey::FullName,
                           .iterates = true,
                           .addable = false};
constexpr auto kRead = ListRead(kListBaseFields);
constexpr RecordDecl kDecl{.label = "Entity",
                           .xmlName = "Entity",
                           .objectType = zqObjectTypeEntity,
                           .fields = kListBaseFields.fields,
                           .read = kRead,
                           .list = &kFacts};
constexpr EntityFieldIds kNone{};
}  // namespace

const RecordDecl& Entity::Declaration() { return kDecl; }

const EntityFieldIds& Entity::Ids() const { return kNone; }

void Entity::Require(FieldId id) const {
  if (id == kNoField) Raise(1030, Label());
}

void Entity::SetShared(FieldId id, std::string_view value) {
  Require(id);
  SetText(id, value);
}

zkListObjectRef Entity::SharedRef(FieldId id) const { return id == kNoField ? zkListObjectRef() : Ref(id); }

void Entity::CreditLimit(Currency value) {
  Require(Ids().creditLimit);
  SetAmount(Ids().creditLimit, value);
}

void Entity::OpenBalance(Currency value) {
  Require(Ids().openBalance);
  SetAmount(Ids().openBalance, value);
}

void Entity::OpenBalanceDate(Date value) {
  Require(Ids().openBalanceDate);
  SetDate(Ids().openBalanceDate, value);
}

void Entity::TermsRef(std::string_view fullName) {
  Require(Ids().termsRef);
  SetRefName(Ids().termsRef, fullName);
}

void Entity::CurrencyRef(std::string_view fullName) {
  Require(Ids().currencyRef);
  SetRefName(Ids().currencyRef, fullName);
}

void Entity::CheckNamesDiffer(zkErrors& errors, ValidateContext&) {
  const std::string_view first = TextView(Ids().firstName);
  const std::string_view last = TextView(Ids().lastName);
  if (!first.empty() && detail::FoldKey(first) == detail::FoldKey(last)) errors.AddCode(1509, "Last Name");
}

}  // namespace brenvale
