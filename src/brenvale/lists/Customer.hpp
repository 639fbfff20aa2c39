#pragma once
// A customer, or with a parent a job under a customer ("Acme:Roof repair"): names, addresses, ways of
// reaching them, terms, tax, credit and the job's course. Fields that QuickBooks takes only when the
// customer is added (the parent aside, which a modify request never carries) are fixed afterwards.
#include <string>
#include <string_view>

#include "brenvale/lists/CreditCardInfo.hpp"
#include "brenvale/lists/Entity.hpp"
#include "brenvale/model/Address.hpp"

namespace brenvale {

class Customer : public Entity {
 public:
  Customer() : Entity(Declaration()) {}
  static const RecordDecl& Declaration();

  // The customer a job belongs to, by full name (empty: a customer of its own).
  using ListRecord::Parent;
  void Parent(std::string_view fullName) { SetRefName(kParentRef, fullName); }
  zkListObjectRef ParentRef() const { return Ref(kParentRef); }

  using Entity::AltContact;
  using Entity::Balance;
  using Entity::CompanyName;
  using Entity::Contact;
  using Entity::CreditLimit;
  using Entity::CurrencyRef;
  using Entity::Mobile;
  using Entity::Notes;
  using Entity::OpenBalance;
  using Entity::OpenBalanceDate;
  using Entity::Pager;
  using Entity::Suffix;
  using Entity::TermsRef;
  // How QuickBooks prints the name on forms; read only.
  std::string PrintAs() const { return Entity::PrintAs(); }

  Address& BillAddress();
  Address& ShipAddress();
  // The addresses as QuickBooks prints them; read only.
  const Address& BillAddressBlock();
  const Address& ShipAddressBlock();
  brenvale::CreditCardInfo& CreditCardInfo();

  // The customer's balance with its jobs'.
  Currency TotalBalance() const;
  std::string ResaleNumber() const;
  void ResaleNumber(std::string_view value);
  // Tax codes of editions outside the US.
  bool IsUsingCustomerTaxCode() const;
  void IsUsingCustomerTaxCode(bool value);

  qbEnumJobStatus JobStatus() const;
  void JobStatus(qbEnumJobStatus value);
  Date JobStartDate() const;
  void JobStartDate(Date value);
  Date JobProjectedEndDate() const;
  void JobProjectedEndDate(Date value);
  Date JobEndDate() const;
  void JobEndDate(Date value);
  std::string JobDesc() const;
  void JobDesc(std::string_view value);
  bool IsStatementWithParent() const;
  void IsStatementWithParent(bool value);
  qbEnumDeliveryMethod DeliveryMethod() const;
  void DeliveryMethod(qbEnumDeliveryMethod value);

  // References, set by full name.
  zkListObjectRef CustomerTypeRef() const;
  void CustomerTypeRef(std::string_view fullName);
  zkListObjectRef SalesRepRef() const;
  void SalesRepRef(std::string_view fullName);
  zkListObjectRef SalesTaxCodeRef() const;
  void SalesTaxCodeRef(std::string_view fullName);
  zkListObjectRef ItemSalesTaxRef() const;
  void ItemSalesTaxRef(std::string_view fullName);
  zkListObjectRef TaxCodeRef() const;
  void TaxCodeRef(std::string_view fullName);
  zkListObjectRef JobTypeRef() const;
  void JobTypeRef(std::string_view fullName);
  zkListObjectRef PreferredPaymentMethodRef() const;
  void PreferredPaymentMethodRef(std::string_view fullName);
  zkListObjectRef PriceLevelRef() const;
  void PriceLevelRef(std::string_view fullName);

 protected:
  const EntityFieldIds& Ids() const override;
};

}  // namespace brenvale
