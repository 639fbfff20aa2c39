#pragma once
// Run-time enumeration catalogues: each public enumeration exists as a list of values with a code,
// a description in words and the text that stands for it in qbXML.
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "brenvale/core/KeyedList.hpp"
#include "brenvale/core/Types.hpp"

namespace brenvale {

// The key of each catalogue in `Enumerations`.
enum zqEnumerationType : std::int32_t {
  zqeObjectState = 1, zqeObjectType, zqeListType, zqeJobStatus, zqeDeliveryMethod, zqeItemType,
  zqeAccountType, zqeActiveStatus, zqeTaxForm, zqeMonth, zqeOperator, zqeField, zqeFileOpenMode,
  zqeDateMacro, zqeTxnPaymentType, zqeTxnLineType, zqeGenderType, zqeEmployeeType, zqeWageType,
  zqeMatchType, zqePaidStatus, zqeWarnings, zqeTxnState, zqeCalculateChargesFrom,
  zqeAgingReportBasis, zqeSummaryReportBasis, zqePaySalesTax, zqeDayOfWeek, zqeLinkedTxnType,
  zqeReport, zqeReportField, zqeReportDateMacro, zqeTxnType, zqeEntityType, zqeBillableStatus,
  zqeReportGroup, zqeReportCalendar, zqeReportRowColReturn, zqeReportColSortFields,
  zqeDataExtDataTypes, zqeClearedStatus, zqePayrollAccrualPeriod, zqePayrollPayFrequency,
  zqeReportAccountFilters, zqeReportBudgetCriterion, zqeReportBudgetSumColsByEnum,
  zqeReportBudgetSumRowsByEnum, zqeReportDetailLevelFilterEnum, zqeReportPostingStatusFilter,
  zqeCashFlowClassification, zqeSpecialAcountType, zqePayrollItemNonWage, zqeDataBaseTableName,
  zqeMenuConditions, zqeMenuNames, zqeFieldNames,
};
inline constexpr int kEnumerationTypeCount = 56;

class zkEnumValue {
 public:
  zkEnumValue() = default;
  zkEnumValue(Integer code, std::string description, std::string xmlTag = {});

  Integer Code() const { return code_; }
  const std::string& Description() const { return description_; }
  // The qbXML text; the CollectionKey when no tag was given.
  const std::string& XMLTag() const { return xmlTag_.empty() ? key_ : xmlTag_; }
  // The description with every blank removed.
  const std::string& CollectionKey() const { return key_; }

  void SetCode(Integer v) { code_ = v; }
  void SetDescription(std::string v);
  void SetXMLTag(std::string v) { xmlTag_ = std::move(v); }

 private:
  Integer code_ = 0;
  std::string description_;
  std::string xmlTag_;
  std::string key_;
};

// Removes every blank (U+0020) from a key; case is kept.
std::string NormaliseEnumKey(std::string_view key);

class ZKEnum {
 public:
  void AddObject(const zkEnumValue& value);
  const zkEnumValue& Add(Integer code, std::string description, std::string xmlTag = {});
  bool ItemExists(std::string_view key) const;
  bool ItemExists(std::size_t position) const { return values_.ExistsAt(position); }
  // By key (blanks removed, case ignored) or by 1-based position; failures are the list's own.
  const zkEnumValue& Item(std::string_view key) const;
  const zkEnumValue& Item(std::size_t position) const { return values_.At(position); }
  const zkEnumValue& operator[](std::string_view key) const { return Item(key); }
  const zkEnumValue& operator[](std::size_t position) const { return Item(position); }
  // The value with that code; 1007 when none carries it.
  const zkEnumValue& ItemByCode(Integer code) const;
  const zkEnumValue* FindByCode(Integer code) const;
  std::int32_t Count() const { return static_cast<std::int32_t>(values_.Count()); }
  auto begin() const { return values_.begin(); }
  auto end() const { return values_.end(); }

  // qbXML text to code: the first value whose XMLTag equals `text` (or, with byKey, whose
  // CollectionKey does); 1008 when none does.
  Integer CodeOf(std::string_view text, bool byKey = false) const;
  // The code of a text read from a response: the value whose XMLTag is the text, else the one whose
  // CollectionKey is the text without its blanks ("Salary Regular" finds "SalaryRegular"); nothing
  // when neither is there.
  std::optional<Integer> CodeOfText(std::string_view text) const;
  // Code to qbXML text (1007 for an unknown code).
  const std::string& XMLTagOf(Integer code) const { return ItemByCode(code).XMLTag(); }

 private:
  KeyedList<zkEnumValue> values_;
};

// The catalogue of catalogues, keyed by zqEnumerationType.
class Enumerations {
 public:
  void AddObject(std::shared_ptr<ZKEnum> catalogue, std::string_view key);
  const ZKEnum& Item(zqEnumerationType type) const;
  const ZKEnum& operator[](zqEnumerationType type) const { return Item(type); }
  std::int32_t Count() const { return static_cast<std::int32_t>(catalogues_.Count()); }
  auto begin() const { return catalogues_.begin(); }
  auto end() const { return catalogues_.end(); }

 private:
  KeyedList<std::shared_ptr<ZKEnum>> catalogues_;
  std::array<const ZKEnum*, kEnumerationTypeCount + 1> byType_{};
};

// The library-wide catalogue of this thread, built in full on first use.
Enumerations& TheEnumerations();
// Shortcut: the catalogue of one enumeration.
const ZKEnum& EnumCatalogue(zqEnumerationType type);

// A code handed over as a Long, narrowed to the catalogues' 16-bit Integer: outside -32768..32767
// raises "Overflow" (6).
Integer NarrowEnumCode(Long code);
// The three conversions the library globals offer: a code's Description and qbXML text (the code is
// narrowed first; an unknown code raises 1007), and the code of a description, looked up by key
// (blanks removed, case ignored; an unknown description fails as ZKEnum::Item does).
const std::string& EnumDescription(Long code, zqEnumerationType type);
const std::string& EnumXMLText(Long code, zqEnumerationType type);
Long EnumCodeOfDescription(std::string_view description, zqEnumerationType type);

namespace detail {
// Fills every catalogue; the data lives in EnumCatalogue.cpp and EnumCatalogueReports.cpp.
void BuildCatalogues(Enumerations& into);
}  // namespace detail

}  // namespace brenvale
