#pragma once
// A name of any of the name lists: a customer, a vendor, an employee or an other name. Entity is
// what they share: their names and ways of reaching them, served once for every kind from where
// each kind's field table keeps them, and the records an entity query returns, each of its own kind.
// Its declaration describes the entity list itself (EntityQueryRq, the label "Entity").
//
// The accessors every name list has are public here; those only some kinds have are protected and
// made public by the kinds that have them.
#include <cstddef>
#include <string>
#include <string_view>

#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

// Where a name list kind keeps the fields the name lists share; kNoField for one it lacks.
struct EntityFieldIds {
  FieldId companyName = kNoField, salutation = kNoField, firstName = kNoField, middleName = kNoField,
          lastName = kNoField, suffix = kNoField, printAs = kNoField, phone = kNoField, mobile = kNoField,
          pager = kNoField, altPhone = kNoField, email = kNoField, contact = kNoField, altContact = kNoField,
          accountNumber = kNoField, notes = kNoField, balance = kNoField, creditLimit = kNoField,
          openBalance = kNoField, openBalanceDate = kNoField, termsRef = kNoField, currencyRef = kNoField;
};

namespace detail {
template <std::size_t N>
consteval FieldId TagId(const FieldTable<N>& table, std::string_view tag) {
  for (std::size_t i = 0; i < N; ++i)
    if (table.fields[i]->tag == tag) return static_cast<FieldId>(i);
  return kNoField;
}
}  // namespace detail

// The shared fields of a kind's table, found by their qbXML tags.
template <std::size_t N>
consteval EntityFieldIds EntityIds(const FieldTable<N>& t) {
  using detail::TagId;
  return {TagId(t, "CompanyName"), TagId(t, "Salutation"), TagId(t, "FirstName"), TagId(t, "MiddleName"),
          TagId(t, "LastName"),    TagId(t, "Suffix"),     TagId(t, "PrintAs"),   TagId(t, "Phone"),
          TagId(t, "Mobile"),      TagId(t, "Pager"),      TagId(t, "AltPhone"),  TagId(t, "Email"),
          TagId(t, "Contact"),     TagId(t, "AltContact"), TagId(t, "AccountNumber"), TagId(t, "Notes"),
          TagId(t, "Balance"),     TagId(t, "CreditLimit"), TagId(t, "OpenBalance"), TagId(t, "OpenBalanceDate"),
          TagId(t, "TermsRef"),    TagId(t, "CurrencyRef")};
}

class Entity : public ListRecord {
 public:
  // The entity list: its query, label and facts.
  static const RecordDecl& Declaration();

  std::string Salutation() const { return Text(Ids().salutation); }
  void Salutation(std::string_view value) { SetShared(Ids().salutation, value); }
  std::string FirstName() const { return Text(Ids().firstName); }
  void FirstName(std::string_view value) { SetShared(Ids().firstName, value); }
  std::string MiddleName() const { return Text(Ids().middleName); }
  void MiddleName(std::string_view value) { SetShared(Ids().middleName, value); }
  std::string LastName() const { return Text(Ids().lastName); }
  void LastName(std::string_view value) { SetShared(Ids().lastName, value); }
  std::string Phone() const { return Text(Ids().phone); }
  void Phone(std::string_view value) { SetShared(Ids().phone, value); }
  std::string AltPhone() const { return Text(Ids().altPhone); }
  void AltPhone(std::string_view value) { SetShared(Ids().altPhone, value); }
  std::string Email() const { return Text(Ids().email); }
  void Email(std::string_view value) { SetShared(Ids().email, value); }
  std::string AccountNumber() const { return Text(Ids().accountNumber); }
  void AccountNumber(std::string_view value) { SetShared(Ids().accountNumber, value); }

  // A rule of employees and other names: a last name the same as the first (case aside) adds 1509
  // "Last Name cannot be the same as First Name".
  void CheckNamesDiffer(zkErrors& errors, ValidateContext& context);

 protected:
  using ListRecord::ListRecord;
  // Where this kind keeps the shared fields.
  virtual const EntityFieldIds& Ids() const;

  std::string CompanyName() const { return Text(Ids().companyName); }
  void CompanyName(std::string_view value) { SetShared(Ids().companyName, value); }
  std::string Suffix() const { return Text(Ids().suffix); }
  void Suffix(std::string_view value) { SetShared(Ids().suffix, value); }
  std::string PrintAs() const { return Text(Ids().printAs); }
  void PrintAs(std::string_view value) { SetShared(Ids().printAs, value); }
  std::string Mobile() const { return Text(Ids().mobile); }
  void Mobile(std::string_view value) { SetShared(Ids().mobile, value); }
  std::string Pager() const { return Text(Ids().pager); }
  void Pager(std::string_view value) { SetShared(Ids().pager, value); }
  std::string Contact() const { return Text(Ids().contact); }
  void Contact(std::string_view value) { SetShared(Ids().contact, value); }
  std::string AltContact() const { return Text(Ids().altContact); }
  void AltContact(std::string_view value) { SetShared(Ids().altContact, value); }
  std::string Notes() const { return Text(Ids().notes); }
  void Notes(std::string_view value) { SetShared(Ids().notes, value); }
  // What the name owes or is owed, as QuickBooks reports it.
  Currency Balance() const { return Amount(Ids().balance); }
  Currency CreditLimit() const { return Amount(Ids().creditLimit); }
  void CreditLimit(Currency value);
  // The balance the name starts with, and its date; set when the name is added.
  Currency OpenBalance() const { return Amount(Ids().openBalance); }
  void OpenBalance(Currency value);
  Date OpenBalanceDate() const { return DateValue(Ids().openBalanceDate); }
  void OpenBalanceDate(Date value);
  zkListObjectRef TermsRef() const { return SharedRef(Ids().termsRef); }
  void TermsRef(std::string_view fullName);
  zkListObjectRef CurrencyRef() const { return SharedRef(Ids().currencyRef); }
  void CurrencyRef(std::string_view fullName);


 private:
  // Sets a shared text field; a kind without it raises 1030.
  void SetShared(FieldId id, std::string_view value);
  // Raises 1030 for a field this kind does not have.
  void Require(FieldId id) const;
  zkListObjectRef SharedRef(FieldId id) const;
};

}  // namespace brenvale
