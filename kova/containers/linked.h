#pragma once

#include <cstdint>
#include <initializer_list>

namespace kova::detail {

/// What KOVAList and KOVAMap have in common: a doubly linked chain of nodes that hold a value each. A node
/// has value_, next_, prev_ and holders_, which it opens to this class.
///
/// Chains may share nodes. holders_ counts the chains that have a node as head or tail and the nodes that
/// have it as next; it is what lets each node be released once.
template <class Node> class Linked {
public:
    /// Iterators hold one node; the end of every kind is the null node. They live as long as their
    /// node: until it is erased.
    template <class NodeOrConst, bool Forward> class BasicIterator {
    public:
        explicit BasicIterator(NodeOrConst* node = nullptr) noexcept : node_(node) {}
        bool operator==(BasicIterator const& other) const noexcept { return node_ == other.node_; }
        bool operator!=(BasicIterator const& other) const noexcept { return node_ != other.node_; }
        /// The entry's value; null at the end.
        void* operator*() const noexcept { return node_ ? node_->value_ : nullptr; }
        /// Goes to the entry that follows in this direction; stays at the end.
        BasicIterator& operator++() noexcept {
            if (node_)
                node_ = Forward ? node_->next_ : node_->prev_;
            return *this;
        }
        BasicIterator operator++(int) noexcept {
            BasicIterator const before(*this);
            ++*this;
            return before;
        }

    private:
        friend class Linked;
        NodeOrConst* node_;
    };

    using Iterator = BasicIterator<Node, true>;
    using ConstIterator = BasicIterator<Node const, true>;
    using ReverseIterator = BasicIterator<Node, false>;

    Iterator Begin() noexcept { return Iterator(head_); }
    Iterator End() noexcept { return Iterator(); }
    ConstIterator Begin() const noexcept { return ConstIterator(head_); }
    ConstIterator End() const noexcept { return ConstIterator(); }
    ReverseIterator ReverseBegin() const noexcept { return ReverseIterator(tail_); }
    ReverseIterator ReverseEnd() const noexcept { return ReverseIterator(); }

    /// The value at the head or tail; null when there is none.
    void* GetFront() const noexcept { return head_ ? head_->value_ : nullptr; }
    void* GetBack() const noexcept { return tail_ ? tail_->value_ : nullptr; }
    void* GetTop() const noexcept { return GetBack(); }

    void PopBack() { Erase(Iterator(tail_)); }
    void Pop() { PopBack(); }
    void PopFront() { Erase(Begin()); }

    /// The first entry whose value is v, or End().
    Iterator Find(void* const& v) noexcept {
        return first([v](Node const& node) { return node.value_ == v; });
    }
    /// Removes the first entry whose value is v.
    void Remove(void* v) { Erase(Find(v)); }
    /// Removes the entry; nothing at the end. That the entry belongs here is not checked.
    void Erase(Iterator position);
    /// Shrinks runs of equal neighbours (of equal values) to one.
    void Unique();
    /// Empties the chain. Only the first node is released.
    void Clear() noexcept;

    unsigned int GetSize() const noexcept { return size_; }
    bool IsEmpty() const noexcept { return head_ == nullptr; }

protected:
    Linked() noexcept = default;
    /// Both share the other's nodes. Callers depend on the nodes of before outliving an assignment.
    Linked(Linked const& other) noexcept { *this = other; }
    Linked& operator=(Linked const& other) noexcept {
        for (Node* const former : {head_, tail_}) {
            if (former && former != other.head_ && former != other.tail_)
                ++former->holders_;
        }
        point(head_, other.head_);
        point(tail_, other.tail_);
        size_ = other.size_;
        return *this;
    }
    ~Linked() { Clear(); }

    /// Take over a new node.
    void append(Node* node);
    void prepend(Node* node);

    /// The first node from the head that the condition holds for, or End().
    template <class Condition> Iterator first(Condition const& condition) noexcept {
        Node* node = head_;
        while (node && !condition(*node))
            node = node->next_;
        return Iterator(node);
    }

    Node* head_ = nullptr;
    Node* tail_ = nullptr;
    std::uint32_t size_ = 0;

private:
    static void point(Node*& pointer, Node* node) noexcept;
    static void release(Node* node) noexcept;
    static void link(Node* before, Node* after) noexcept;
};

/// Sets a head, tail or next pointer and keeps the holders of both nodes right.
template <class Node> void Linked<Node>::point(Node*& pointer, Node* node) noexcept {
    if (node)
        ++node->holders_;
    Node* const former = pointer;
    pointer = node;
    release(former);
}

/// Takes one holder from a node. A node without holders is deleted and lets go of the next one.
template <class Node> void Linked<Node>::release(Node* node) noexcept {
    while (node && --node->holders_ == 0) {
        Node* const next = node->next_;
        if (next && next->prev_ == node)
            next->prev_ = nullptr;
        delete node;
        node = next;
    }
}

/// Makes `after` the successor of `before`. A backward link always belongs to a forward one, so that a
/// node which goes takes the links to itself along.
template <class Node> void Linked<Node>::link(Node* before, Node* after) noexcept {
    if (before->next_ && before->next_->prev_ == before)
        before->next_->prev_ = nullptr;
    point(before->next_, after);
    if (after)
        after->prev_ = before;
}

template <class Node> void Linked<Node>::append(Node* node) {
    if (!head_)
        point(head_, node);
    if (tail_)
        link(tail_, node);
    point(tail_, node);
    ++size_;
}

template <class Node> void Linked<Node>::prepend(Node* node) {
    if (head_)
        link(node, head_);
    point(head_, node);
    ++size_;
}

template <class Node> void Linked<Node>::Erase(Iterator position) {
    Node* node = nullptr;
    point(node, position.node_); // keeps the node while it is unlinked
    if (!node)
        return;
    if (node == head_) {
        if (node->next_)
            node->next_->prev_ = nullptr;
        point(head_, node->next_);
        if (!head_)
            point(tail_, nullptr);
    } else {
        Node* before = head_;
        while (before && before->next_ != node)
            before = before->next_;
        if (node == tail_)
            point(tail_, before);
        if (before)
            link(before, node->next_);
    }
    --size_;
    point(node, nullptr);
}

template <class Node> void Linked<Node>::Unique() {
    if (!head_)
        return;
    Node* kept = head_;
    while (Node* const next = kept->next_) {
        if (next->value_ == kept->value_)
            Erase(Iterator(next));
        else
            kept = next;
    }
}

template <class Node> void Linked<Node>::Clear() noexcept {
    // One more holder for the second node: letting go of the first must not release the others, which
    // callers may still reach through iterators.
    if (head_ && head_->holders_ == (head_ == tail_ ? 2U : 1U) && head_->next_)
        ++head_->next_->holders_;
    point(head_, nullptr);
    point(tail_, nullptr);
    size_ = 0;
}

} // namespace kova::detail
