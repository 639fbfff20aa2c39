#include "brenvale/rqp/protocol/Guid.hpp"

#include <cstdint>
#include <cstdio>
#include <random>

namespace brenvale::rqp::detail {

std::string NewGuid() {
  static thread_local std::mt19937_64 rng{(static_cast<std::uint64_t>(std::random_device{}()) << 32) ^
                                          std::random_device{}()};
  std::uint64_t a = rng(), b = rng();
  a = (a & ~0xF000ULL) | 0x4000ULL;                          // version 4
  b = (b & ~(0xC000ULL << 48)) | (0x8000ULL << 48);          // the RFC 4122 variant
  char buf[48];
  std::snprintf(buf, sizeof buf, "{%08x-%04x-%04x-%04x-%012llx}", static_cast<unsigned>(a >> 32),
                static_cast<unsigned>((a >> 16) & 0xFFFF), static_cast<unsigned>(a & 0xFFFF),
                static_cast<unsigned>(b >> 48), static_cast<unsigned long long>(b & 0xFFFFFFFFFFFFULL));
  return buf;
}

}  // namespace brenvale::rqp::detail
