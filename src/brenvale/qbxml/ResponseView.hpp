#pragma once
// The one reading of a qbXML response document: its response aggregates in order, each with its
// status, request identifier, iterator attributes and returned elements. Every reader of responses
// (collections, reference lookups, the connection's host query, the tool) goes through it.
#include <optional>
#include <string>
#include <string_view>

#include "brenvale/core/Types.hpp"
#include "brenvale/qbxml/Dom.hpp"

namespace brenvale {

class ResponseView {
 public:
  // One response aggregate ("JobTypeQueryRs", "InvoiceAddRs" ...).
  class Response {
   public:
    Response() = default;
    explicit Response(DomNode node) : node_(node) {}

    bool IsNull() const { return node_.IsNull(); }
    explicit operator bool() const { return !IsNull(); }
    DomNode Node() const { return node_; }
    // The aggregate's name, "JobTypeQueryRs".
    std::string_view Name() const { return node_.BaseName(); }

    std::optional<std::string> RequestID() const { return node_.Attribute("requestID"); }
    // The request identifier as a number; 0 when it is missing or not a whole number.
    Long RequestNumber() const;
    // The status code; 0 when the attribute is missing, -1 when it is not a number.
    Long StatusCode() const;
    std::string Severity() const { return node_.Attribute("statusSeverity").value_or(""); }
    // The status message as QuickBooks wrote it.
    std::string StatusMessage() const { return node_.Attribute("statusMessage").value_or(""); }
    // The status message as the library reports it: when it holds "QuickBooks error message: ",
    // only the text after that prefix.
    std::string Message() const;
    // Status 0 (success) or 1 (a query that matched nothing).
    bool Answered() const;

    // The iterator attributes of a query response: what is left to read, and the iterator's ID.
    Long RemainingCount() const;
    std::string IteratorID() const { return node_.Attribute("iteratorID").value_or(""); }

    // The returned elements, in order (the Ret elements of a query, the record of an add).
    class RetRange {
     public:
      explicit RetRange(DomNode parent) : parent_(parent) {}
      class iterator {
       public:
        explicit iterator(DomNode n) : n_(Skip(n)) {}
        DomNode operator*() const { return n_; }
        iterator& operator++() {
          n_ = Skip(n_.NextSibling());
          return *this;
        }
        bool operator==(const iterator& o) const { return n_.Raw() == o.n_.Raw(); }

       private:
        static DomNode Skip(DomNode n) {
          while (n && !n.IsElement()) n = n.NextSibling();
          return n;
        }
        DomNode n_;
      };
      iterator begin() const { return iterator(parent_.FirstChild()); }
      iterator end() const { return iterator(DomNode()); }

     private:
      DomNode parent_;
    };
    DomNode FirstRet() const;
    RetRange Rets() const { return RetRange(node_); }

   private:
    DomNode node_;
  };

  // The responses of a document: the children of its messages aggregate ("QBXMLMsgsRs", or
  // "QBXMLSubscriptionMsgsRs" for a subscription document). A document that is not a qbXML
  // response has none.
  explicit ResponseView(const DomDocument& document);

  bool Empty() const { return !First(); }
  // The first response, or a null one.
  Response First() const;
  std::size_t Count() const;

  class iterator {
   public:
    explicit iterator(DomNode n) : it_(n) {}
    Response operator*() const { return Response(*it_); }
    iterator& operator++() {
      ++it_;
      return *this;
    }
    bool operator==(const iterator& o) const { return it_ == o.it_; }

   private:
    Response::RetRange::iterator it_;
  };
  iterator begin() const { return iterator(messages_.FirstChild()); }
  iterator end() const { return iterator(DomNode()); }

 private:
  DomNode messages_;
};

}  // namespace brenvale
