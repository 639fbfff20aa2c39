#pragma once
// The credit card a customer pays with by default: number, expiry, and the name, address and postal
// code on the card. A nested record of its owner ("CreditCardInfo" in adds, modifies and Ret).
#include <string>
#include <string_view>

#include "brenvale/model/RecordCore.hpp"

namespace brenvale {

class CreditCardInfo : public RecordCore {
 public:
  CreditCardInfo() : RecordCore(Declaration()) {}
  static const RecordDecl& Declaration();

  std::string CreditCardNumber() const;
  void CreditCardNumber(std::string_view value);
  // 1 to 12; 0 when unset.
  Integer ExpirationMonth() const;
  void ExpirationMonth(Integer value);
  Integer ExpirationYear() const;
  void ExpirationYear(Integer value);
  std::string NameOnCard() const;
  void NameOnCard(std::string_view value);
  std::string CreditCardAddress() const;
  void CreditCardAddress(std::string_view value);
  std::string CreditCardPostalCode() const;
  void CreditCardPostalCode(std::string_view value);
};

}  // namespace brenvale
