#pragma once
// Data extensions: definitions (DataExtDefAdd/Mod/Del/Query, keyed by owner and name) and the
// values stored on records and on the company (DataExtAdd/Mod/Del).
#include "brenvale/rqp/records/Handler.hpp"
#include "brenvale/rqp/schema/Declarations.hpp"

namespace brenvale::rqp::detail {

void DeclareDataExt(DeclBuilder& b);
void AddDataExtHandlers(HandlerTable& table);

}  // namespace brenvale::rqp::detail
