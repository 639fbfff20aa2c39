#pragma once
// What the company engine says about itself, and the request-processor error numbers it raises.
// Shared by the public entry (CompanyEngine.hpp) and every part of the engine.
#include <cstdint>
#include <string>
#include <vector>

#include "brenvale/core/ProcessorHresult.hpp"

namespace brenvale::rqp {

// What the engine says about itself (the host query), which qbXML versions it accepts, and how
// strictly it reads requests.
struct HostFacts {
  std::string ProductName = "QuickBooks Pro 2024";
  int MajorVersion = 34;
  int MinorVersion = 0;
  std::string Country = "US";  // "US", "CA" or "UK"
  // In ascending order; the last is the newest.
  std::vector<std::string> SupportedVersions = {"1.0", "1.1", "2.0", "2.1", "3.0",  "4.0",  "4.1",  "5.0",
                                                "6.0", "7.0", "8.0", "9.0", "10.0", "11.0", "12.0", "13.0"};
  bool IsAutomaticLogin = false;
  // Where event subscriptions are kept (a SQLite file shared by every engine that names it).
  // Empty: kept in memory, shared by the engines of this process.
  std::string SubscriptionStore;
  // QuickBooks refuses a whole document when an element is out of schema order. A host may relax
  // that for its own experiments: children are then put in order before they are checked. Never
  // meant for tests of what a host sends.
  bool RelaxElementOrder = false;
};

// QuickBooks' request-processor error numbers, as every processor raises them.
namespace hresult = brenvale::hresult;

}  // namespace brenvale::rqp
