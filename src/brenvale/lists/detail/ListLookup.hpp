#pragma once
// Looks one list record up in QuickBooks, for validation rules that need to know whether (and as
// what) a referenced record exists.
#include <string>
#include <string_view>

#include "brenvale/model/zkListObjectRef.hpp"

namespace brenvale::detail {

// True when a request processor is there to ask.
bool CanLookUp();

// Sends `request` ("EntityQueryRq", "AccountQueryRq") for the record `ref` names (by FullName, or by
// ListID when it has no name) and returns the name of the Ret element that answers ("VendorRet");
// empty when QuickBooks finds nothing or the request fails.
std::string LookUpRecord(std::string_view request, const zkListObjectRef& ref);

}  // namespace brenvale::detail
