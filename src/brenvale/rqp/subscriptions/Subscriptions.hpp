#pragma once
// Event subscriptions (ProcessSubscription): DataEvent, UIEvent and UIExtension subscriptions, kept
// per machine rather than per company.
#include <string>
#include <string_view>

#include "brenvale/rqp/HostFacts.hpp"
#include "brenvale/rqp/schema/Declarations.hpp"

namespace brenvale::rqp::detail {

void DeclareSubscriptions(DeclBuilder& b);

// Answers a QBXMLSubscriptionMsgsRq document; throws ProcessError when it cannot be parsed.
std::string ProcessSubscriptions(std::string_view text, const HostFacts& facts);

}  // namespace brenvale::rqp::detail
