#pragma once
// What a writer and every write gate may know: the qbXML version, the company's edition and the
// preferences the gates ask about, the form being written (an add, a modify, a record in response
// form) and, for transaction lines, the family of their owner. Writers read this, never the session.
#include <cstdint>
#include <string>
#include <string_view>

#include "brenvale/core/Currency.hpp"

namespace brenvale {

enum class Form : std::uint8_t { Add, Mod, Ret };

// The families of transactions that own item lines; they decide a line's legal fields and form.
enum class OwnerFamily : std::uint8_t { None, Sales, Purchase, GroupMember };

struct WriteContext {
  Form form = Form::Add;
  Currency versionNumber;       // the element gate
  std::string versionText;      // "13.0", "CA3.0"
  std::string country;          // the company's edition: "US", "CA", "UK", "AU"
  bool online = false;          // the online edition rather than QuickBooks on a desktop
  OwnerFamily owner = OwnerFamily::None;

  // The company keeps sales tax codes (the US edition) rather than tax codes.
  bool UsesSalesTaxCodes() const { return country.empty() || country == "US"; }
  bool UsesTaxCodes() const { return !UsesSalesTaxCodes(); }
  // The company's edition is that country's (an edition not reported is the US one).
  bool In(std::string_view edition) const { return country.empty() ? edition == "US" : country == edition; }
  // The session's qbXML version is below major.minor.
  bool Before(int major, int minor) const { return versionNumber < Currency::FromUnits((major * 10 + minor) * 1000LL); }

  // The context of this thread's session, for the given form.
  static WriteContext OfSession(Form form);
  // The same context for another form or owner.
  WriteContext As(Form f) const {
    WriteContext c = *this;
    c.form = f;
    return c;
  }
  WriteContext For(OwnerFamily family) const {
    WriteContext c = *this;
    c.owner = family;
    return c;
  }
};

}  // namespace brenvale
