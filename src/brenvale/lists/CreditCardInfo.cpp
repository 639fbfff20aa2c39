#include "brenvale/lists/CreditCardInfo.hpp"

namespace brenvale {
namespace {
struct F {
  static constexpr FieldDef CreditCardNumber = field::Text("CreditCardNumber");
  static constexpr FieldDef ExpirationMonth = field::Int("ExpirationMonth");
  static constexpr FieldDef ExpirationYear = field::Int("ExpirationYear");
  static constexpr FieldDef NameOnCard = field::Text("NameOnCard");
  static constexpr FieldDef CreditCardAddress = field::Text("CreditCardAddress");
  static constexpr FieldDef CreditCardPostalCode = field::Text("CreditCardPostalCode");
};
constexpr auto kFields = Fields(F::CreditCardNumber, F::ExpirationMonth, F::ExpirationYear, F::NameOnCard,
                                F::CreditCardAddress, F::CreditCardPostalCode);
constexpr auto kBody = kFields.Order(F::CreditCardNumber, F::ExpirationMonth, F::ExpirationYear, F::NameOnCard,
                                     F::CreditCardAddress, F::CreditCardPostalCode);
constexpr RecordDecl kDecl{.label = "CreditCardInfo",
                           .fields = kFields.fields,
                           .add = kBody,
                           .mod = kBody,
                           .read = kBody,
                           .make = [](const RecordDecl&) -> RecordCore* { return new CreditCardInfo(); }};
}  // namespace

const RecordDecl& CreditCardInfo::Declaration() { return kDecl; }

std::string CreditCardInfo::CreditCardNumber() const { return Text(kFields.Id(F::CreditCardNumber)); }
void CreditCardInfo::CreditCardNumber(std::string_view value) { SetText(kFields.Id(F::CreditCardNumber), value); }
Integer CreditCardInfo::ExpirationMonth() const { return static_cast<Integer>(Int(kFields.Id(F::ExpirationMonth))); }
void CreditCardInfo::ExpirationMonth(Integer value) { SetInt(kFields.Id(F::ExpirationMonth), value); }
Integer CreditCardInfo::ExpirationYear() const { return static_cast<Integer>(Int(kFields.Id(F::ExpirationYear))); }
void CreditCardInfo::ExpirationYear(Integer value) { SetInt(kFields.Id(F::ExpirationYear), value); }
std::string CreditCardInfo::NameOnCard() const { return Text(kFields.Id(F::NameOnCard)); }
void CreditCardInfo::NameOnCard(std::string_view value) { SetText(kFields.Id(F::NameOnCard), value); }
std::string CreditCardInfo::CreditCardAddress() const { return Text(kFields.Id(F::CreditCardAddress)); }
void CreditCardInfo::CreditCardAddress(std::string_view value) { SetText(kFields.Id(F::CreditCardAddress), value); }
std::string CreditCardInfo::CreditCardPostalCode() const { return Text(kFields.Id(F::CreditCardPostalCode)); }
void CreditCardInfo::CreditCardPostalCode(std::string_view value) {
  SetText(kFields.Id(F::CreditCardPostalCode), value);
}

}  // namespace brenvale
