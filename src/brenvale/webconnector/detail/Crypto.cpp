#include "brenvale/webconnector/detail/Crypto.hpp"

#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/rand.h>

#include <climits>
#include <cstdio>

#include "brenvale/core/BrenvaleError.hpp"

namespace brenvale::webconnector::detail {

std::string RandomBytes(std::size_t count) {
  std::string bytes(count, '\0');
  if (count > INT_MAX || RAND_bytes(reinterpret_cast<unsigned char*>(bytes.data()), static_cast<int>(count)) != 1)
    platform::Raise(platform::kInvalidProcedureCall, "BrenvaleWC",
                    "The system's cryptographic random generator could not deliver random bytes.");
  return bytes;
}

std::string Hex(std::string_view bytes) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  text.reserve(bytes.size() * 2);
  for (unsigned char b : bytes) {
    text += kDigits[b >> 4];
    text += kDigits[b & 0x0F];
  }
  return text;
}

std::optional<std::string> FromHex(std::string_view text) {
  auto nibble = [](char c) -> int {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
  };
  if (text.size() % 2 != 0) return std::nullopt;
  std::string bytes;
  bytes.reserve(text.size() / 2);
  for (std::size_t i = 0; i < text.size(); i += 2) {
    const int hi = nibble(text[i]), lo = nibble(text[i + 1]);
    if (hi < 0 || lo < 0) return std::nullopt;
    bytes += static_cast<char>(hi * 16 + lo);
  }
  return bytes;
}

std::string Pbkdf2Sha256(std::string_view password, std::string_view salt, int iterations, std::size_t length) {
  std::string key(length, '\0');
  if (password.size() > INT_MAX || salt.size() > INT_MAX || length > INT_MAX ||
      PKCS5_PBKDF2_HMAC(password.data(), static_cast<int>(password.size()),
                        reinterpret_cast<const unsigned char*>(salt.data()), static_cast<int>(salt.size()),
                        iterations, EVP_sha256(), static_cast<int>(length),
                        reinterpret_cast<unsigned char*>(key.data())) != 1)
    platform::Raise(platform::kInvalidProcedureCall, "BrenvaleWC", "A password could not be hashed.");
  return key;
}

bool SameBytes(std::string_view a, std::string_view b) {
  return a.size() == b.size() && CRYPTO_memcmp(a.data(), b.data(), a.size()) == 0;
}

std::string NewTicket() {
  std::string b = RandomBytes(16);
  b[6] = static_cast<char>((b[6] & 0x0F) | 0x40);  // version 4
  b[8] = static_cast<char>((b[8] & 0x3F) | 0x80);  // the RFC 4122 variant
  const std::string h = Hex(b);
  return h.substr(0, 8) + "-" + h.substr(8, 4) + "-" + h.substr(12, 4) + "-" + h.substr(16, 4) + "-" + h.substr(20);
}

std::string NewGuid() {
  std::string guid = "{" + NewTicket() + "}";
  for (char& c : guid)
    if (c >= 'a' && c <= 'f') c = static_cast<char>(c - 'a' + 'A');
  return guid;
}

}  // namespace brenvale::webconnector::detail
