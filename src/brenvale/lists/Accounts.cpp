#include "brenvale/lists/Accounts.hpp"

namespace brenvale {

Account& Accounts::Add(std::string_view Name, bool IsActive, std::string_view ParentFullName,
                       qbEnumAccountType AccountType, std::string_view AccountNumber, std::string_view BankNumber,
                       std::string_view Desc, Currency OpenBalance, Date OpenBalanceDate) {
  auto record = std::make_shared<Account>();
  record->Name(Name);
  record->IsActive(IsActive);
  if (!ParentFullName.empty()) record->Parent(ParentFullName);
  if (AccountType != qbEnumAccountType{}) record->AccountType(AccountType);
  if (!AccountNumber.empty()) record->AccountNumber(AccountNumber);
  if (!BankNumber.empty()) record->BankNumber(BankNumber);
  if (!Desc.empty()) record->Desc(Desc);
  if (OpenBalance != Currency()) record->OpenBalance(OpenBalance);
  if (!OpenBalanceDate.IsNull()) record->OpenBalanceDate(OpenBalanceDate);
  return AddNew(std::move(record));
}

}  // namespace brenvale
