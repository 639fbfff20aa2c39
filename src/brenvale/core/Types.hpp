#pragma once
// The scalar types the public interface speaks in.
#include <any>
#include <cstdint>

namespace brenvale {

using Single = float;
using Double = double;
using Long = std::int32_t;
using Integer = std::int16_t;
using Boolean = bool;

// A client's own value slot (UserData) and the few loosely typed results.
using Variant = std::any;

}  // namespace brenvale
