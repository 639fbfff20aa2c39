#pragma once
// The generic record machinery every list kind shares: building a canonical Ret element from an
// Add or Mod body, naming and hierarchy rules, references (kept by ListID), index rows, deletes.
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <pugixml.hpp>

#include "brenvale/rqp/protocol/Status.hpp"
#include "brenvale/rqp/records/Context.hpp"
#include "brenvale/rqp/records/Kind.hpp"

namespace brenvale::rqp::detail {

// Adds a record from an Add body (`extra` are Ret children set after the body, for new-company
// records QuickBooks makes itself). Throws StatusError.
Record AddListRecord(Context& co, const ListKind& kind, pugi::xml_node add,
                     const std::vector<std::pair<std::string, std::string>>& extra = {});
// Modifies a record from a Mod body. Throws StatusError.
Record ModListRecord(Context& co, const ListKind& kind, pugi::xml_node mod);
// Deletes a record of `kind` by ListID. Throws StatusError.
DeletedRecord DeleteListRecord(Context& co, const ListKind& kind, std::string_view listId);

// A record of one of `kinds`, found by ListID or by full name; nullopt when there is none.
std::optional<Record> FindById(Context& co, const std::vector<const ListKind*>& kinds, std::string_view listId);
std::optional<Record> FindByName(Context& co, const std::vector<const ListKind*>& kinds, std::string_view fullName);

// QuickBooks' refusal of a record it cannot save (an Add) or modify: "There was an error when saving
// a Customer list, element "Acme".  QuickBooks error message: " and its reason.
StatusError ListError(const ListKind& kind, bool isAdd, std::string_view name, int code, std::string_view why);

// Sets (or with an empty value removes) a simple child of a Ret element being built; the machinery
// puts the children in declared order afterwards.
void SetChild(pugi::xml_node parent, const char* name, const std::string& value);
// The number in a simple element, in hundred-thousandths; nullopt when absent or not a number.
std::optional<long long> Amount(pugi::xml_node n);

// Rebuilds every record's index rows and stored form from its Ret element (after a migration).
void ReindexRecords(Context& co);

}  // namespace brenvale::rqp::detail
