#pragma once
// Creates request processors by ProgID. A processor library registers its factory once; the
// connection asks for a ProgID and gets a fresh processor or the platform's component error.
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "brenvale/core/RequestProcessor.hpp"

namespace brenvale {

using RequestProcessorFactory = std::function<std::shared_ptr<IRequestProcessor>()>;

inline constexpr std::string_view kProgIdQBXMLRP2 = "QBXMLRP2.RequestProcessor";
inline constexpr std::string_view kProgIdQBXMLRP = "QBXMLRP.RequestProcessor";
inline constexpr std::string_view kProgIdCompanyEngine = "BrenvaleRqP.RequestProcessor";

// Registers (or replaces) the factory of a ProgID; ProgIDs compare without regard to case.
void RegisterRequestProcessor(std::string_view progId, RequestProcessorFactory factory);
void UnregisterRequestProcessor(std::string_view progId);
bool IsRequestProcessorRegistered(std::string_view progId);
std::vector<std::string> RegisteredRequestProcessors();

// A new processor of that ProgID. An unknown ProgID, or QuickBooks' own COM processors on a
// system without COM, raise error 429 "ActiveX component can't create object" with the ProgID.
std::shared_ptr<IRequestProcessor> CreateRequestProcessor(std::string_view progId);

}  // namespace brenvale
