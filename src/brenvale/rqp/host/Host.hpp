#pragma once
// What the host and the company say about themselves: HostQuery, CompanyQuery,
// CompanyActivityQuery, PreferencesQuery.
#include "brenvale/rqp/records/Handler.hpp"
#include "brenvale/rqp/schema/Declarations.hpp"

namespace brenvale::rqp::detail {

void DeclareHost(DeclBuilder& b);
void AddHostHandlers(HandlerTable& table);

// The company record and the preferences of a new company (after its standard lists are made).
void SeedCompany(Context& co);
// Brings the company record and preferences of a file made by an older engine up to what a company
// reports now.
void UpgradeCompany(Context& co);

}  // namespace brenvale::rqp::detail
