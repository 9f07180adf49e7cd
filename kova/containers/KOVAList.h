#pragma once

#include <cstdint>

#include <kova/core/export.h>

class KOVAList;

/// An entry of a KOVAList.
class KOVA_API KOVAListNode {
public:
    /// Iterators hold one node; the end of every kind is the null node. They live as long as their
    /// node: until it is erased.
    template <class Node, KOVAListNode* KOVAListNode::*Step> class Iterator {
    public:
        explicit Iterator(Node* node = nullptr) noexcept : node_(node) {}
        bool operator==(Iterator const& other) const noexcept { return node_ == other.node_; }
        bool operator!=(Iterator const& other) const noexcept { return node_ != other.node_; }
        /// The entry's value; null at the end.
        void* operator*() const noexcept { return node_ ? node_->value_ : nullptr; }
        /// Goes to the entry that follows in this direction; stays at the end.
        Iterator& operator++() noexcept {
            if (node_)
                node_ = node_->*Step;
            return *this;
        }
        Iterator operator++(int) noexcept {
            Iterator const before(*this);
            ++*this;
            return before;
        }

    private:
        friend class KOVAList;
        Node* node_;
    };

private:
    friend class KOVAList;

    explicit KOVAListNode(void* value) noexcept : value_(value) {}

    void* value_;
    KOVAListNode* next_ = nullptr;
    KOVAListNode* prev_ = nullptr;
    /// Lists that have this node as head or tail, and nodes that have it as next. Lists may share
    /// nodes; the count is what lets each node be released once.
    std::uint32_t holders_ = 0;

public:
    using KOVAListIterator = Iterator<KOVAListNode, &KOVAListNode::next_>;
    using KOVAConstListIterator = Iterator<KOVAListNode const, &KOVAListNode::next_>;
    using KOVAReverseListIterator = Iterator<KOVAListNode, &KOVAListNode::prev_>; ///< from the tail to the head
};

/// A doubly linked list of untyped pointers, which it never owns.
///
///     KOVAList listeners;
///     listeners.PushBack(&console);
///     for (auto i = listeners.Begin(); i != listeners.End(); ++i)
///         static_cast<Listener*>(*i)->Update();
///
/// Hazard: copies share their nodes, and Clear and the destructor release the first node only. Who
/// holds several entries and cares about their storage removes them with PopFront first.
class KOVA_API KOVAList {
public:
    KOVAList() noexcept = default;
    /// Both share the other's nodes.
    KOVAList(KOVAList const& other) noexcept;
    KOVAList& operator=(KOVAList const& other) noexcept;
    /// Callers depend on later nodes outliving the list: only the first is released.
    virtual ~KOVAList();

    KOVAListNode::KOVAListIterator Begin() noexcept { return KOVAListNode::KOVAListIterator(head_); }
    KOVAListNode::KOVAListIterator End() noexcept { return KOVAListNode::KOVAListIterator(); }
    KOVAListNode::KOVAConstListIterator Begin() const noexcept { return KOVAListNode::KOVAConstListIterator(head_); }
    KOVAListNode::KOVAConstListIterator End() const noexcept { return KOVAListNode::KOVAConstListIterator(); }
    KOVAListNode::KOVAReverseListIterator ReverseBegin() const noexcept {
        return KOVAListNode::KOVAReverseListIterator(tail_);
    }
    KOVAListNode::KOVAReverseListIterator ReverseEnd() const noexcept {
        return KOVAListNode::KOVAReverseListIterator();
    }

    /// The value at the head or tail; null when there is none.
    void* GetFront() const noexcept { return head_ ? head_->value_ : nullptr; }
    void* GetBack() const noexcept { return tail_ ? tail_->value_ : nullptr; }
    void* GetTop() const noexcept { return GetBack(); }

    void PushBack(void* v);
    void Push(void* v) { PushBack(v); }
    void Append(void* v) { PushBack(v); }
    /// Callers depend on the tail staying as it is, also in an empty list: GetBack is then null, and
    /// the next PushBack sets the tail to a node that is not linked behind the head.
    void PushFront(void* v);

    void PopBack() { Erase(KOVAListNode::KOVAListIterator(tail_)); }
    void Pop() { PopBack(); }
    void PopFront() { Erase(Begin()); }

    /// The first entry whose value is v, or End().
    KOVAListNode::KOVAListIterator Find(void* v) noexcept;
    /// Removes the first entry whose value is v.
    void Remove(void* v) { Erase(Find(v)); }
    /// Removes the entry; nothing at the end. That the entry belongs to this list is not checked.
    void Erase(KOVAListNode::KOVAListIterator position);
    /// Shrinks runs of equal neighbours to one.
    void Unique();
    /// Empties the list. Only the first node is released.
    void Clear() noexcept;

    unsigned int GetSize() const noexcept { return size_; }
    bool IsEmpty() const noexcept { return head_ == nullptr; }

private:
    static void point(KOVAListNode*& pointer, KOVAListNode* node) noexcept;
    static void release(KOVAListNode* node) noexcept;
    static void link(KOVAListNode* before, KOVAListNode* after) noexcept;

    KOVAListNode* head_ = nullptr;
    KOVAListNode* tail_ = nullptr;
    std::uint32_t size_ = 0;
};
