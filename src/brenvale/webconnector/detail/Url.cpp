#include "brenvale/webconnector/detail/Url.hpp"

#include <arpa/inet.h>

#include <algorithm>
#include <cctype>

namespace brenvale::webconnector::detail {
namespace {

std::optional<int> Port(std::string_view digits) {
  if (digits.empty() || digits.size() > 5) return std::nullopt;
  int port = 0;
  for (char c : digits) {
    if (c < '0' || c > '9') return std::nullopt;
    port = port * 10 + (c - '0');
  }
  return port <= 65535 ? std::optional<int>(port) : std::nullopt;
}

// Splits "host", "host:port", "[v6]" or "[v6]:port".
bool SplitHostPort(std::string_view text, std::string& host, std::optional<int>& port) {
  std::string_view rest;
  if (!text.empty() && text.front() == '[') {
    const std::size_t close = text.find(']');
    if (close == std::string_view::npos) return false;
    host = std::string(text.substr(1, close - 1));
    rest = text.substr(close + 1);
  } else {
    const std::size_t colon = text.rfind(':');
    host = std::string(text.substr(0, colon));
    rest = colon == std::string_view::npos ? std::string_view() : text.substr(colon);
  }
  if (!rest.empty()) {
    if (rest.front() != ':') return false;
    port = Port(rest.substr(1));
    if (!port) return false;
  }
  return !host.empty();
}

}  // namespace

std::string Url::Origin() const {
  const bool v6 = host.find(':') != std::string::npos;
  return scheme + "://" + (v6 ? "[" + host + "]" : host) + ":" + std::to_string(port);
}

std::optional<Url> ParseUrl(std::string_view text) {
  const std::size_t colon = text.find("://");
  if (colon == std::string_view::npos) return std::nullopt;
  Url url;
  for (char c : text.substr(0, colon)) url.scheme += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (url.scheme != "http" && url.scheme != "https") return std::nullopt;
  std::string_view rest = text.substr(colon + 3);
  const std::size_t slash = rest.find_first_of("/?#");
  std::string_view authority = rest.substr(0, slash);
  if (authority.find('@') != std::string_view::npos) return std::nullopt;  // no credentials in addresses
  std::optional<int> port;
  if (!SplitHostPort(authority, url.host, port)) return std::nullopt;
  for (char& c : url.host) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (std::any_of(url.host.begin(), url.host.end(),
                  [](unsigned char c) { return c <= ' ' || c == '/' || c == '\\' || c == '%'; }))
    return std::nullopt;
  url.port = port.value_or(url.scheme == "https" ? 443 : 80);
  url.path = slash == std::string_view::npos ? "/" : std::string(rest.substr(slash));
  if (url.path.front() != '/') url.path.insert(0, "/");
  return url;
}

bool IsIpAddress(std::string_view host) {
  const std::string h(host);
  unsigned char buffer[16];
  return inet_pton(AF_INET, h.c_str(), buffer) == 1 || inet_pton(AF_INET6, h.c_str(), buffer) == 1;
}

bool IsLoopback(std::string_view host) {
  if (host == "localhost" || host == "::1") return true;
  const std::string h(host);
  unsigned char v4[4];
  return inet_pton(AF_INET, h.c_str(), v4) == 1 && v4[0] == 127;
}

std::optional<std::pair<std::string, int>> ParseListen(std::string_view text) {
  std::string host;
  std::optional<int> port;
  if (!SplitHostPort(text, host, port) || !port) return std::nullopt;
  return std::make_pair(host, *port);
}

}  // namespace brenvale::webconnector::detail
