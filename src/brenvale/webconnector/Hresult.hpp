#pragma once
// The request-processor error numbers the Web Connector bridge raises to its host: QuickBooks' own,
// so that a host handles a failure through the bridge as it would one of QuickBooks.
#include <cstdint>

namespace brenvale::webconnector::hresult {

// "QuickBooks found an error when parsing the provided XML text stream."
inline constexpr std::int32_t kParseError = static_cast<std::int32_t>(0x80040400u);
// "Could not access QuickBooks." — no Web Connector came, or it left, within the time limit.
inline constexpr std::int32_t kCouldNotAccess = static_cast<std::int32_t>(0x80040401u);
// "Unexpected error."
inline constexpr std::int32_t kUnexpected = static_cast<std::int32_t>(0x80040402u);
// "Could not open the specified QuickBooks company data file." — a company no user serves.
inline constexpr std::int32_t kCouldNotOpenFile = static_cast<std::int32_t>(0x80040403u);
// "The BeginSession method has not been called or it did not succeed."
inline constexpr std::int32_t kBeginSessionNotCalled = static_cast<std::int32_t>(0x8004040Cu);
// "The ticket parameter is invalid."
inline constexpr std::int32_t kInvalidTicket = static_cast<std::int32_t>(0x8004040Du);
// "A session has already begun on this connection. Call EndSession before beginning another."
inline constexpr std::int32_t kSessionAlreadyBegun = static_cast<std::int32_t>(0x80040411u);

}  // namespace brenvale::webconnector::hresult
