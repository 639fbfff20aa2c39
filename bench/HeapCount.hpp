#pragma once
// Counts the heap of the benchmark program that includes this header (in one source file only): its
// own operator new/delete and pugixml's allocation hooks, so that a benchmark can report the peak a
// piece of work reaches above what was live when it started.
#include <cstddef>
#include <cstdlib>
#include <new>
#include <pugixml.hpp>

namespace brenvale::bench {

inline std::size_t gLive = 0;
inline std::size_t gPeak = 0;

inline void* Counted(std::size_t n) {
  auto* p = static_cast<std::size_t*>(std::malloc(n + 16));
  if (!p) throw std::bad_alloc();
  *p = n;
  gLive += n;
  if (gLive > gPeak) gPeak = gLive;
  return reinterpret_cast<char*>(p) + 16;
}

inline void Uncounted(void* q) {
  if (!q) return;
  auto* p = reinterpret_cast<std::size_t*>(static_cast<char*>(q) - 16);
  gLive -= *p;
  std::free(p);
}

inline const bool gPugiHooked = (pugi::set_memory_management_functions(&Counted, &Uncounted), true);

// The peak of the heap above what is live now, from now until Bytes() is asked.
class PeakAbove {
 public:
  PeakAbove() : base_(gLive) { gPeak = gLive; }
  std::size_t Bytes() const { return gPeak - base_; }

 private:
  std::size_t base_;
};

}  // namespace brenvale::bench

void* operator new(std::size_t n) { return brenvale::bench::Counted(n); }
void operator delete(void* p) noexcept { brenvale::bench::Uncounted(p); }
void operator delete(void* p, std::size_t) noexcept { brenvale::bench::Uncounted(p); }
