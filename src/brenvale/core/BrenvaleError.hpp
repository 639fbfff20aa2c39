#pragma once
// The one raised error type: a COM-style error number, a source label and a description.
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace brenvale {

// Base of the library's object-defined error numbers.
inline constexpr std::int64_t kErrorBase = 0x80040000LL;

// The full error number of a library code, as a signed 32-bit value (1000 -> -2147220504).
constexpr std::int32_t ErrorNumber(int code) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(kErrorBase + code));
}

class BrenvaleError : public std::runtime_error {
 public:
  BrenvaleError(std::int32_t number, std::string source, std::string description);

  std::int32_t Number() const { return number_; }
  const std::string& Source() const { return source_; }
  const std::string& Description() const { return description_; }
  // The library code (Number minus the base), or the plain number for errors of the platform.
  int Code() const;
  // True when the library raised the error with one of its own codes. A request processor's error
  // may carry a number in the same range (QuickBooks' 0x80040403) that means something else.
  bool IsLibraryCode() const { return libraryCode_; }
  // An error with a library code, as Raise makes it.
  static BrenvaleError OfCode(int code, std::string source, std::string description);

 private:
  bool libraryCode_ = false;
  std::int32_t number_;
  std::string source_;
  std::string description_;
};

// The fixed message of a library code, exactly as the library reports it; empty for codes
// without a message of their own (1026, 1027, 1003 ...).
std::string_view ErrorMessage(int code);

// Raises library code `code` with the table's message, or with `description` when given.
[[noreturn]] void Raise(int code, std::string_view source, std::string_view description = {});

// Errors of the platform that the library passes on with their own numbers (not offset).
namespace platform {
inline constexpr std::int32_t kInvalidProcedureCall = 5;   // "Invalid procedure call or argument"
inline constexpr std::int32_t kOverflow = 6;               // "Overflow"
inline constexpr std::int32_t kSubscriptOutOfRange = 9;    // "Subscript out of range"
inline constexpr std::int32_t kTypeMismatch = 13;          // "Type mismatch"
inline constexpr std::int32_t kCannotCreateObject = 429;   // "ActiveX component can't create object"
inline constexpr std::int32_t kDuplicateKey = 457;
inline constexpr std::int32_t kFileError = 75;             // "Path/File access error"
[[noreturn]] void Raise(std::int32_t number, std::string_view source, std::string_view description = {});
}  // namespace platform

}  // namespace brenvale
