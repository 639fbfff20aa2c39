#pragma once
// QuickBooks' request-processor error numbers: every request processor raises its failures with
// these, so that a host handles them alike whichever processor stands behind its connection.
#include <cstdint>

namespace brenvale::hresult {

// "QuickBooks found an error when parsing the provided XML text stream."
inline constexpr std::int32_t kParseError = static_cast<std::int32_t>(0x80040400u);
// "Could not access QuickBooks."
inline constexpr std::int32_t kCouldNotAccess = static_cast<std::int32_t>(0x80040401u);
// "Unexpected error."
inline constexpr std::int32_t kUnexpected = static_cast<std::int32_t>(0x80040402u);
// "Could not open the specified QuickBooks company data file."
inline constexpr std::int32_t kCouldNotOpenFile = static_cast<std::int32_t>(0x80040403u);
// "The BeginSession method has not been called or it did not succeed."
inline constexpr std::int32_t kBeginSessionNotCalled = static_cast<std::int32_t>(0x8004040Cu);
// "The ticket parameter is invalid."
inline constexpr std::int32_t kInvalidTicket = static_cast<std::int32_t>(0x8004040Du);
// The company file is open in another mode.
inline constexpr std::int32_t kFileOpenInOtherMode = static_cast<std::int32_t>(0x80040410u);
// "A session has already begun on this connection. Call EndSession before beginning another."
inline constexpr std::int32_t kSessionAlreadyBegun = static_cast<std::int32_t>(0x80040411u);

}  // namespace brenvale::hresult
