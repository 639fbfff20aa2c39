#pragma once
#include <string>
#include <string_view>

#include "brenvale/rqp/CompanyEngine.hpp"

namespace brenvale::rqp::detail {

// Answers a QBXMLSubscriptionMsgsRq document; throws ProcessError when it cannot be parsed.
std::string ProcessSubscriptions(std::string_view text, const HostFacts& facts);

}  // namespace brenvale::rqp::detail
