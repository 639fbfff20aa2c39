#include "brenvale/core/BrenvaleError.hpp"

#include <unordered_map>

namespace brenvale {

BrenvaleError::BrenvaleError(std::int32_t number, std::string source, std::string description)
    : std::runtime_error(source + ": " + description + " (" + std::to_string(number) + ")"),
      number_(number),
      source_(std::move(source)),
      description_(std::move(description)) {}

int BrenvaleError::Code() const {
  std::int64_t n = static_cast<std::uint32_t>(number_);
  if (n >= kErrorBase && n < kErrorBase + 0x10000) return static_cast<int>(n - kErrorBase);
  return number_;
}

std::string_view ErrorMessage(int code) {
  // Every message is used exactly as written here, misspellings and double blanks included.
  static const std::unordered_map<int, std::string_view> kMessages = {
      {1000, "QBConnect has not been called, or it failed"},
      {1001, "QuickBooks: "},
      {1002, "Field cannot be modified"},
      {1004, "Brenvale must have QuickBooks Pro 2002 or higher installed"},
      {1005, "The version of QuickBooks you are running does not support this feature."},
      {1007, "An invalid enumeration value was supplied."},
      {1008, "An invalid enumeration string was supplied."},
      {1009, "Internal error.  Unknown transaction type."},
      {1010, "Invalid parent specified"},
      {1011, "Indicated object failed validation.  Check object's errors for details."},
      {1012, "Name cannot be null"},
      {1013, "Name cannot exceed 31 characters"},
      {1014, "Invalid account specified"},
      {1015, "Invalid sales tax code specified"},
      {1016, "Invalid vendor specified"},
      {1017, "Name specified already exists on file"},
      {1018, "Indicated object failed commit.  Check object's errors for details."},
      {1019, "Empty array passed to GetBy... call"},
      {1020, "Invalid date format"},
      {1021, "This operation is only permitted on the master collection"},
      {1022, "The specified object is not a member of the collection"},
      {1023, "Error(s) occurred during commit.  Check each object's Errors for details."},
      {1025, "This operation is not permitted on the master collection"},
      {1028, "This field cantains an invalid character."},
      {1030, "This operation is not supported for the indicated object type."},
      {1031, "An invalid list or txn ID was passed."},
      {1032, "This property is only supported for US versions of QuickBooks."},
      {1101, "Invalid item type specified"},
      {1103, "Quantity must be 1 for sales tax group lines"},
      {1104, "Parent item type must be the same as the child's"},
      {1105, "Cannot specify Quanity if Item is of type Discount."},
      {1106, "Fixed Assets require a purchase description"},
      {1201, "Address error"},
      {1202, "Address lines cannot exceed 41 characters."},
      {1300, "Account number cannot exceed 7 characters"},
      {1301, "Bank number cannot exceed 25 characters"},
      {1302, "Account description cannot exceed 29 characters"},
      {1303, "Parent account type must be the same as childs"},
      {1400, "Sales tax code name cannot exceed 3 characters"},
      {1401, "Sales tax code description cannot exceed 31 characters"},
      {1500, "Customer/Company name cannot exceed 41 characters"},
      {1501, "Salutation cannot exceed 15 characters"},
      {1502, "First/Last name cannot exceed 25 characters"},
      {1503, "Middle name cannot exceed 5 characters"},
      {1504, "Phone numbers cannot exceed 21 characters"},
      {1505, "Email cannot exceed 99 characters"},
      {1506, "Resale number cannot exceed 15 characters"},
      {1507, "Account number cannot exceed 99 characters"},
      {1508, "Job description cannot exceed 99 characters"},
      {1509, "Last Name cannot be the same as First Name"},
      {1600, "If WithChildren is specified only one name is allowed"},
      {1601, "Memo length cannot exceed 4095 characters"},
      {1700, "Vendor/Company name cannot exceed 41 characters"},
      {1701, "Contact names cannot exceed 41 characters"},
      {1702, "Names on Checks cannot exceed 41 characters"},
      {1703, "Notes cannot exceed 4095 characters"},
      {1704, "VendorType FullName cannot exceed 159 characters"},
      {1705, "TermsRef FullName cannot exceed 31 characters"},
      {1706, "Vendor TaxID cannot exceed 15 characters"},
      {1707, "If EligibleFor1099 is True, Vendor Address and TaxID is required"},
      {1708, "You must call GetBillsAndCredits before accessing this property."},
      {1800, "EntryNumber cannot exceed 11 characters"},
      {1801, "Journal lines do not balance"},
      {1803, "Journal lines can only contain positive amounts"},
      {1804, "Journal entries require an account on each line with an amount"},
      {1805, "Transactions to accounts receivable must include a customer"},
      {1806, "Transactions to accounts payable must include a vendor"},
      {1807, "Non-posting accounts cannot be used"},
      {1900, "Invalid terms type specified"},
      {2000, "Line items within item groups cannot be changed"},
      {2001, "Invalid item specified"},
      {2002, "Unsupported item type for this transaction"},
      {2003, "Vendor does not exist"},
      {2004, "Term code does not exist"},
      {2005, "AP Transactions don't support percentage priced items"},
      {2006, "Amount cannot be modified"},
      {2008, "This property is not valid for current transaction type"},
      {2009, "This property applies to item groups only"},
      {2010, "Entity does not exist"},
      {2011, "Account type must be Credit Card"},
      {2012, "Customer code does not exist"},
      {2013, "Class code does not exist"},
      {2014, "Item code does not exist"},
      {2015, "Sales tax code does not exist"},
      {2016, "Tax item is already included in the transaction header"},
      {2017, "Tax item is in already included within the transaction lines"},
      {2018, "Invalid customer specified"},
      {2019, "Invalid account specified"},
      {2020, "Account type must be Accounts Receivable"},
      {2021, "Transaction lines with amounts must have items"},
      {2022, "Transactions must have at least one line item"},
      {2023, "Markup property is only valid for estimates"},
      {2024, "Vendor is required for this type of transaction"},
      {2025, "Customer is required for this type of transaction"},
      {2027, "Cannot specify transactions to apply ReceivePayments to when IsAutoApply is True"},
      {2028, "Invalid payment method specified"},
      {2029, "Invalid DiscountAccount specified. DiscountAccount should be of type Expense, Income, "
             "OtherExpense or OtherIncome."},
      {2030, "Cannot apply more than one payment to the same TxnID in a ReceivePayment.Add call"},
      {2031, "Total AppliedTos payment amount cannot exceed ReceivePayment.Total"},
      {2033, "Account type must be Accounts Payable"},
      {2034, "The TxnType property has not been set"},
      {2035, "The currencies of your account and customer/vendor must match."},
      {2100, "Print As value cannot exceed 41 characters"},
      {2101, "Social Security Number (SSN) cannot exceed 15 characters"},
      {2200, "Initials cannot exceed 5 characters"},
      {2201, "SalesRepEntity FullName cannot exceed 31 characters"},
      {2202, "SalesRep Name or ListID must be provided"},
      {2203, "SalesRepEntity is not valid"},
      {2204, "SalesRepEntity not found"},
      {2300, "You cannot specify a check number for a check to be printed"},
      {2301, "Checks can only be written against bank accounts"},
      {2400, "Message cannot exceed 101 characters"},
      {2500, "Notes cannot be null"},
      {2501, "Notes cannot exceed 4095 characters"},
      {2601, "Invalid BaseReport property."},
      {2602, "Basis must be Cash or Accural"},
      {2700, "Invalid bill payment method specified."},
      {2800, "Invalid data extension index specified."},
      {2801, "This operation is only permitted on application defined fields."},
      {2802, "No GUID has been registered for application defined fields."},
      {2804, "Specified data extension in not defined for this object type."},
      {2830, "Invalid payroll wage item specified."},
      {2870, "QBConnection.RegisterEventGUID has not been called"},
      {2890, "Deposit lines must include either a TxnId or an Account."},
      {2910, "This version of Brenvale does not support this feature."},
      {2911, "The ListType property has not been set or is invalid"},
  };
  auto it = kMessages.find(code);
  return it == kMessages.end() ? std::string_view{} : it->second;
}

BrenvaleError BrenvaleError::OfCode(int code, std::string source, std::string description) {
  BrenvaleError e(ErrorNumber(code), std::move(source), std::move(description));
  e.libraryCode_ = true;
  return e;
}

void Raise(int code, std::string_view source, std::string_view description) {
  std::string text(description.empty() ? ErrorMessage(code) : description);
  throw BrenvaleError::OfCode(code, std::string(source), std::move(text));
}

namespace platform {
void Raise(std::int32_t number, std::string_view source, std::string_view description) {
  std::string text(description);
  if (text.empty()) {
    switch (number) {
      case kInvalidProcedureCall: text = "Invalid procedure call or argument"; break;
      case kOverflow: text = "Overflow"; break;
      case kSubscriptOutOfRange: text = "Subscript out of range"; break;
      case kTypeMismatch: text = "Type mismatch"; break;
      case kCannotCreateObject: text = "ActiveX component can't create object"; break;
      case kDuplicateKey: text = "This key is already associated with an element of this collection"; break;
      case kFileError: text = "Path/File access error"; break;
      default: break;
    }
  }
  throw BrenvaleError(number, std::string(source), std::move(text));
}
}  // namespace platform

}  // namespace brenvale
