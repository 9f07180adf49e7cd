#pragma once

#include <cstdint>

#include <kova/containers/linked.h>
#include <kova/core/export.h>

/// An entry of a KOVAMap.
class KOVAMapNode {
public:
    using KOVAMapIterator = kova::detail::Linked<KOVAMapNode>::Iterator;
    using KOVAConstMapIterator = kova::detail::Linked<KOVAMapNode>::ConstIterator;
    using KOVAReverseMapIterator = kova::detail::Linked<KOVAMapNode>::ReverseIterator; ///< from the tail to the head

private:
    friend class KOVAMap;
    friend class kova::detail::Linked<KOVAMapNode>;

    KOVAMapNode(std::int32_t key, void* value) noexcept : key_(key), value_(value) {}

    std::int32_t key_;
    void* value_;
    KOVAMapNode* next_ = nullptr;
    KOVAMapNode* prev_ = nullptr;
    std::uint32_t holders_ = 0;
};

/// A doubly linked list of pointers, which it never owns, with a key beside each; searched from end to
/// end. Keys may occur more than once and are kept in 32 bits.
///
///     KOVAMap faces;
///     faces.PushBack(12, &face);
///     Face* found = static_cast<Face*>(faces.GetValueByKey(12));
///
/// Iterators (which give values), searching, popping and erasing come from the base, as a list has them
/// too. Copying and releasing have the hazards of KOVAList.
class KOVA_API KOVAMap : public kova::detail::Linked<KOVAMapNode> {
public:
    KOVAMap() noexcept = default;
    KOVAMap(KOVAMap const&) noexcept = default;
    KOVAMap& operator=(KOVAMap const&) noexcept = default;
    virtual ~KOVAMap();

    /// The key at the head or tail; 0 when there is none.
    long GetFrontKey() const noexcept { return head_ ? head_->key_ : 0; }
    long GetBackKey() const noexcept { return tail_ ? tail_->key_ : 0; }
    long GetTopKey() const noexcept { return GetBackKey(); }

    void PushBack(long key, void* value);
    void Push(long key, void* value) { PushBack(key, value); }
    void Append(long key, void* value) { PushBack(key, value); }
    /// Leaves the tail as it is, as KOVAList::PushFront does.
    void PushFront(long key, void* value);

    // Callers depend on the asymmetry: of several entries with the key, FindByKey and RemoveByKey take the
    // first from the head, GetValueByKey the first from the tail.

    /// The entry, or End().
    KOVAMapNode::KOVAMapIterator FindByKey(long key) noexcept;
    /// The value; null when there is none.
    void* GetValueByKey(long key) const noexcept;
    void RemoveByKey(long key) { Erase(FindByKey(key)); }
};
