#pragma once
// The shape of the enumeration tables (EnumCatalogue.cpp, EnumCatalogueReports.cpp): one row per value,
// with its code, its description in words and, only where the qbXML text is not the description
// without blanks, that text.
#include <initializer_list>
#include <span>

#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/core/Enumerations.hpp"

namespace brenvale::detail {

struct EnumRow {
  int code;
  const char* description;
  const char* tag = nullptr;
};

struct EnumTable {
  zqEnumerationType type;
  std::initializer_list<EnumRow> rows;
};

// What sets a report apart from the usual one, which lists transactions, is about no particular
// entity or account, and takes a period and a calendar.
enum ReportFlag : unsigned {
  kNoTxns = 1,
  kNeedEntity = 2,
  kNeedAccount = 4,
  kNoDate = 8,
  kNoCalendar = 16,
};

// One report of the report catalogue (zqeReport).
struct ReportRow {
  int code;  // qbEnumReports
  const char* description;
  const char* tag;  // nullptr: the description without blanks
  qbEnumReportType kind;
  int group;  // qbEnumReportGroups
  unsigned flags;
};

std::span<const EnumTable> GeneralEnumTables();
std::span<const EnumTable> ReportEnumTables();
// The 89 reports in code order.
std::span<const ReportRow> ReportTable();

}  // namespace brenvale::detail
