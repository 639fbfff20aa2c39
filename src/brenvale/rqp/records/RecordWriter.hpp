#pragma once
// Records in responses: a stored Ret element written the way QuickBooks answers it.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <pugixml.hpp>

#include "brenvale/rqp/protocol/Text.hpp"
#include "brenvale/rqp/records/Context.hpp"
#include "brenvale/rqp/records/Kind.hpp"
#include "brenvale/rqp/store/Store.hpp"

namespace brenvale::rqp::detail {

// The newest qbXML version the declarations know, in tenths.
inline constexpr int kNewestVersion = 130;

// How a record is written into a response.
struct RetOptions {
  std::vector<std::string> include;  // IncludeRetElement: only these top-level elements
  std::vector<std::string> owners;   // OwnerID: the data extensions of these owners
  int version = kNewestVersion;      // what the request's qbXML version has, in tenths
};

// The texts of every child `name` of `parent` (IncludeRetElement, OwnerID, ListID ...).
std::vector<std::string> ChildTexts(pugi::xml_node parent, const char* name);

// The options a request asks for with its IncludeRetElement and OwnerID children.
RetOptions OptionsOf(pugi::xml_node request, int version);

// The full names of referenced records, kept while the records of one answer are written.
using FullNames = std::unordered_map<std::string, std::optional<std::string>>;

// Writes a Ret element in stored form into a response: each reference to a record the engine
// keeps gets that record's full name, the data extensions of the requested owners are added (for
// `objectId`, a ListID or "COMPANY"), elements the request's version does not have are left out,
// and only the included elements are kept. `names` keeps the names looked up across the records
// of one answer (nothing may change between them).
void WriteRecord(Context& co, std::string_view objectId, std::string_view ret, const RetOptions& options,
                 std::string& out, FullNames* names = nullptr);

// What QuickBooks computes for records of one kind (balances, quantities on hand, from the ledger),
// by row id: the values of the kind's computed elements in their order, for many records at once.
using ComputedValues = std::unordered_map<std::int64_t, std::vector<std::int64_t>>;
ComputedValues ComputeValues(Context& co, const ListKind& kind, const std::vector<std::int64_t>& rowIds);

// Writes a list record as WriteRecord does, with what QuickBooks computes for its kind filled in:
// from `values` when they were computed with other records', computed now otherwise.
void WriteListRecord(Context& co, const Record& record, const RetOptions& options, std::string& out,
                     FullNames* names = nullptr, const ComputedValues* values = nullptr);

// Appends one DataExtRet element.
void AppendDataExtRet(std::string& out, std::string_view owner, std::string_view name, std::string_view type,
                      std::string_view value);

}  // namespace brenvale::rqp::detail
