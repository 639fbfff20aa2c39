#pragma once
// A vendor: names, its address, ways of reaching it, the name on its checks, its tax id and 1099
// eligibility, and (through GetBillsAndCredits) what is open with it. The opening balance and the
// currency are set when the vendor is added.
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "brenvale/lists/Entity.hpp"
#include "brenvale/lists/vndBillToPay.hpp"
#include "brenvale/model/Address.hpp"

namespace brenvale {

class Vendor : public Entity {
 public:
  Vendor() : Entity(Declaration()) {}
  ~Vendor() override;
  static const RecordDecl& Declaration();

  using Entity::AltContact;
  using Entity::Balance;
  using Entity::CompanyName;
  using Entity::Contact;
  using Entity::CreditLimit;
  using Entity::CurrencyRef;
  using Entity::Notes;
  using Entity::OpenBalance;
  using Entity::OpenBalanceDate;
  // Read only: a desktop keeps no suffix, mobile or pager for a vendor.
  std::string Suffix() const { return Entity::Suffix(); }
  std::string Mobile() const { return Entity::Mobile(); }
  std::string Pager() const { return Entity::Pager(); }
  // The vendor's type and terms, as QuickBooks reports them.
  zkListObjectRef VendorTypeRef() const;
  zkListObjectRef TermsRef() const { return Entity::TermsRef(); }

  Address& VendorAddress();
  std::string NameOnCheck() const;
  void NameOnCheck(std::string_view value);
  std::string VendorTaxIdent() const;
  void VendorTaxIdent(std::string_view value);
  bool IsVendorEligibleFor1099() const;
  void IsVendorEligibleFor1099(bool value);

  // Asks QuickBooks for the vendor's open bills and the credits it can apply (a bills-to-pay
  // query), optionally for one accounts payable account by full name; returns how many came back.
  // A failed query raises 1001 with QuickBooks' message.
  Long GetBillsAndCredits(std::string_view APAccount = {});
  // What GetBillsAndCredits found; before it has been called each raises 1708.
  std::vector<const vndBillToPay*> BillsToPay() const;
  std::vector<const vndBillToPay*> CreditsToApply() const;

 protected:
  const EntityFieldIds& Ids() const override;

 private:
  // 1707 when the vendor is eligible for 1099 without an address or a tax id.
  void Check1099(zkErrors& errors, ValidateContext& context);
  std::vector<const vndBillToPay*> Open(bool credits) const;
  friend struct VendorDecl;

  // Null until GetBillsAndCredits is called.
  std::unique_ptr<std::vector<std::unique_ptr<vndBillToPay>>> open_;
};

}  // namespace brenvale
