#pragma once
// The values of one record: only the fields it has, as slots sorted by field id, with every text in
// one buffer. Slots and texts share a single allocation, so a record read from a response costs one
// allocation for its values whatever their number.
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "brenvale/model/FieldDef.hpp"

namespace brenvale {

class ValueStore {
 public:
  enum Flag : std::uint8_t {
    kChanged = 1,  // set by a setter since the record was last read
    kText = 2,     // `offset` and `bits` place a text in the buffer
    kPair = 4,     // a text of two parts (a reference: ListID, then FullName); `extra` is the first's length
    kOwned = 8,    // `bits` holds a nested record or child list the record owns
  };

  struct Slot {
    FieldId id;
    std::uint8_t flags;
    std::uint16_t extra;
    std::uint32_t offset;
    std::uint64_t bits;
  };

  ValueStore() noexcept = default;
  ValueStore(ValueStore&& other) noexcept : block_(other.block_) { other.block_ = nullptr; }
  ValueStore& operator=(ValueStore&& other) noexcept;
  ValueStore(const ValueStore&) = delete;
  ValueStore& operator=(const ValueStore&) = delete;
  ~ValueStore();

  std::span<const Slot> Slots() const;
  const Slot* Find(FieldId id) const;
  bool Has(FieldId id) const { return Find(id) != nullptr; }

  std::string_view Text(const Slot& slot) const;
  // The two parts of a pair (a reference's ListID and FullName).
  std::string_view First(const Slot& slot) const;
  std::string_view Second(const Slot& slot) const;

  // Each setter replaces the field's value and flags.
  void SetText(FieldId id, std::string_view text, std::uint8_t flags);
  void SetPair(FieldId id, std::string_view first, std::string_view second, std::uint8_t flags);
  void SetBits(FieldId id, std::uint64_t bits, std::uint8_t flags);
  // Reading's setters: the same as SetText, SetPair and SetBits, quicker when the field comes after
  // every field held and the room was reserved (a record read in its declared order).
  void ReadText(FieldId id, std::string_view text) { ReadPair(id, {}, text, 0); }
  void ReadPair(FieldId id, std::string_view first, std::string_view second, std::uint8_t flags);
  void ReadBits(FieldId id, std::uint64_t bits);
  // Marks a field changed or not.
  void MarkChanged(FieldId id, bool changed);
  void ClearChanged();
  void Erase(FieldId id);
  // Room for `slots` more slots and `text` more bytes of text, so that reading does not grow.
  void Reserve(std::size_t slots, std::size_t text);
  // Bytes of text held, live and dead (for the reading hint).
  std::size_t TextSize() const;

  // Fixes, in the text just set for `id`, the characters a response carries as Windows-1252
  // references of codes 128-159 (they arrive as C1 controls); the text may grow.
  void FixC1(FieldId id);

 private:
  struct Header {
    std::uint16_t count;
    std::uint16_t capacity;
    std::uint32_t textSize;
    std::uint32_t textCapacity;
    std::uint32_t dead;  // bytes of text no slot points to any more
  };

  Slot* SlotsOf(Header* h) const { return reinterpret_cast<Slot*>(h + 1); }
  char* TextOf(Header* h) const { return reinterpret_cast<char*>(SlotsOf(h) + h->capacity); }
  // The slot of `id`, inserted in id order when there is none (its value then empty).
  Slot& Place(FieldId id);
  // A new last slot for `id`, with room for `text` bytes, when that needs no search and no growth.
  Slot* AppendSlot(FieldId id, std::size_t text);
  // Copies texts to the end of the buffer; returns their offset. May move the block.
  std::uint32_t Append(std::string_view a, std::string_view b);
  void Grow(std::size_t slots, std::size_t text);

  Header* block_ = nullptr;
};

}  // namespace brenvale
