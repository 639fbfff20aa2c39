#pragma once
// The request handlers: one function per request name, registered by the parts of the engine that
// answer them.
#include <functional>
#include <map>
#include <string>

#include "brenvale/rqp/protocol/Response.hpp"
#include "brenvale/rqp/records/Context.hpp"

namespace brenvale::rqp::detail {

// Answers one request into `reply`; throws StatusError to refuse it (its changes are rolled back).
using Handler = std::function<void(Context&, const Request&, Reply&)>;
using HandlerTable = std::map<std::string, Handler, std::less<>>;

}  // namespace brenvale::rqp::detail
