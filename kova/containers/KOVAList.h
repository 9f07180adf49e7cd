#pragma once

#include <cstdint>

#include <kova/containers/linked.h>
#include <kova/core/export.h>

/// An entry of a KOVAList.
class KOVAListNode {
public:
    using KOVAListIterator = kova::detail::Linked<KOVAListNode>::Iterator;
    using KOVAConstListIterator = kova::detail::Linked<KOVAListNode>::ConstIterator;
    using KOVAReverseListIterator = kova::detail::Linked<KOVAListNode>::ReverseIterator; ///< from the tail to the head

private:
    friend class KOVAList;
    friend class kova::detail::Linked<KOVAListNode>;

    explicit KOVAListNode(void* value) noexcept : value_(value) {}

    void* value_;
    KOVAListNode* next_ = nullptr;
    KOVAListNode* prev_ = nullptr;
    std::uint32_t holders_ = 0;
};

/// A doubly linked list of untyped pointers, which it never owns.
///
///     KOVAList listeners;
///     listeners.PushBack(&console);
///     for (auto i = listeners.Begin(); i != listeners.End(); ++i)
///         static_cast<Listener*>(*i)->Update();
///
/// Iterators, searching, popping and erasing come from the base, as a map has them too.
///
/// Hazard: copies share their nodes; Clear and the destructor release the first node only, and assignment
/// none: callers depend on nodes outliving the list. Who holds several entries and cares about their storage
/// removes them with PopFront first.
class KOVA_API KOVAList : public kova::detail::Linked<KOVAListNode> {
public:
    KOVAList() noexcept = default;
    KOVAList(KOVAList const&) noexcept = default;
    KOVAList& operator=(KOVAList const&) noexcept = default;
    virtual ~KOVAList();

    void PushBack(void* v);
    void Push(void* v) { PushBack(v); }
    void Append(void* v) { PushBack(v); }
    /// Callers depend on the tail staying as it is, also in an empty list: GetBack is then null, and
    /// the next PushBack sets the tail to a node that is not linked behind the head.
    void PushFront(void* v);
};
