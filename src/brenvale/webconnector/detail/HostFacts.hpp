#pragma once
// What the Web Connector tells the service about QuickBooks on the first sendRequestXML of a
// session: the qbXML version pair the request processor supports, the country, the company file
// open, and the responses to its own host, company and preferences queries. The host's requests
// that ask only for those are answered from it, without a round trip.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brenvale::webconnector::detail {

struct CompanyFacts {
  int majorVersion = 0, minorVersion = 0;
  std::string country;
  std::string companyFile;
  std::string hcpResponse;  // host, company and preferences responses in one qbXML document
};

// The versions the session supports, oldest first: the ones the host response lists up to the
// Web Connector's version pair, which is always last. Empty when neither says anything.
std::vector<std::string> SessionVersions(const CompanyFacts& facts);

// The answer to a request document that holds only host, company and preferences queries with no
// filters, when the first-call response has each of them; nullopt otherwise (the request travels).
std::optional<std::string> AnswerFromFirstCall(std::string_view request, std::string_view hcpResponse);

// The request our Web Connector sends QuickBooks first, at that qbXML version.
std::string FirstCallRequest(std::string_view version);

}  // namespace brenvale::webconnector::detail
