#pragma once
// The generic record machinery every list kind shares: building a canonical Ret element from an
// Add or Mod body, naming and hierarchy rules, references, renames and deletes.
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

#include "brenvale/rqp/detail/Company.hpp"
#include "brenvale/rqp/detail/ListKinds.hpp"

namespace brenvale::rqp::detail {

// Adds a record from an Add body (`extra` are Ret children set after the body, for new-company
// records QuickBooks makes itself). Throws StatusError.
Record AddListRecord(Company& co, const ListKind& kind, pugi::xml_node add,
                     const std::vector<std::pair<std::string, std::string>>& extra = {});
// Modifies a record from a Mod body. Throws StatusError.
Record ModListRecord(Company& co, const ListKind& kind, pugi::xml_node mod);
// Deletes a record of `kind` by ListID. Throws StatusError.
DeletedRecord DeleteListRecord(Company& co, const ListKind& kind, std::string_view listId);

// A record of one of `kinds`, found by ListID or by full name; nullopt when there is none.
std::optional<Record> FindById(Company& co, const std::vector<const ListKind*>& kinds, std::string_view listId);
std::optional<Record> FindByName(Company& co, const std::vector<const ListKind*>& kinds, std::string_view fullName);

// Writes a stored record into a response, keeping only `include` (IncludeRetElement) when given
// and adding the data extensions of `owners` (OwnerID).
void WriteRecord(Company& co, std::string_view listId, std::string_view ret, const std::vector<std::string>& include,
                 const std::vector<std::string>& owners, std::string& out);

// The DataExtRet elements of an object for the given owners (defined in DataExt.cpp).
std::string DataExtRets(Company& co, std::string_view objectId, const std::vector<std::string>& owners);

}  // namespace brenvale::rqp::detail
