#pragma once
// The few cryptographic pieces the bridge needs, all from OpenSSL: random bytes for tickets,
// salts and GUIDs, password hashing, and comparison in constant time.
#include <optional>
#include <string>
#include <string_view>

namespace brenvale::webconnector::detail {

// `count` bytes from OpenSSL's cryptographic random generator; raises when it cannot deliver.
std::string RandomBytes(std::size_t count);

// Lower-case hexadecimal text of bytes, and back (nullopt for text that is not hexadecimal).
std::string Hex(std::string_view bytes);
std::optional<std::string> FromHex(std::string_view text);

// PBKDF2 with HMAC-SHA-256.
std::string Pbkdf2Sha256(std::string_view password, std::string_view salt, int iterations, std::size_t length);

// Whether two byte strings are equal, taking the same time whatever bytes differ.
bool SameBytes(std::string_view a, std::string_view b);

// A random (version 4) GUID in QuickBooks' form: "{8E2A2B5C-1D3F-4E6A-9B7C-0D1E2F3A4B5C}".
std::string NewGuid();

// A session ticket: 128 random bits as a GUID without braces.
std::string NewTicket();

}  // namespace brenvale::webconnector::detail
