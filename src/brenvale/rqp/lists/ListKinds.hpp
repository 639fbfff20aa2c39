#pragma once
// The list kinds the engine keeps (their declaration is in ListKinds.cpp).
#include <vector>

#include "brenvale/rqp/records/Kind.hpp"
#include "brenvale/rqp/records/Handler.hpp"

namespace brenvale::rqp::detail {

// Declares every list kind's Add, Mod and Ret elements and requests.
void DeclareListKinds(DeclBuilder& b);
// The kinds, built from the installed declarations.
std::vector<ListKind> BuildListKinds();

// Add, Mod, Query, ListDel and ListDeletedQuery of every kind, and the combined item, entity and
// terms queries.
void AddListHandlers(HandlerTable& table);

// Fills a new company file with the lists a new QuickBooks company has.
void SeedStandardLists(Context& co);

// Brings the records of a file made by an older engine up to date: their index rows and stored form
// are rebuilt, and the totals files kept before the ledger (opening balances, the stock of
// inventory) are posted as the opening balances they were, dated when their records were made.
void RebuildRecords(Context& co);

}  // namespace brenvale::rqp::detail
