#pragma once
#include <string>

namespace brenvale::rqp::detail {

// A new random (version 4) GUID in braces: "{0f2c5b3e-1a2b-4c3d-8e4f-506172839405}".
// QuickBooks' session tickets and iterator IDs have this form.
std::string NewGuid();

}  // namespace brenvale::rqp::detail
