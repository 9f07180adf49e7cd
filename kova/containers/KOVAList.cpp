#include <kova/containers/KOVAList.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAList) == 16);

/// Sets a head, tail or next pointer and keeps the holders of both nodes right.
void KOVAList::point(KOVAListNode*& pointer, KOVAListNode* node) noexcept {
    if (node)
        ++node->holders_;
    KOVAListNode* const former = pointer;
    pointer = node;
    release(former);
}

/// Takes one holder from a node. A node without holders is deleted and lets go of the next one.
void KOVAList::release(KOVAListNode* node) noexcept {
    while (node && --node->holders_ == 0) {
        KOVAListNode* const next = node->next_;
        if (next && next->prev_ == node)
            next->prev_ = nullptr;
        delete node;
        node = next;
    }
}

/// Makes `after` the successor of `before`. A backward link always belongs to a forward one, so that a
/// node which goes takes the links to itself along.
void KOVAList::link(KOVAListNode* before, KOVAListNode* after) noexcept {
    if (before->next_ && before->next_->prev_ == before)
        before->next_->prev_ = nullptr;
    point(before->next_, after);
    if (after)
        after->prev_ = before;
}

KOVAList::KOVAList(KOVAList const& other) noexcept : size_(other.size_) {
    point(head_, other.head_);
    point(tail_, other.tail_);
}

KOVAList& KOVAList::operator=(KOVAList const& other) noexcept {
    point(head_, other.head_);
    point(tail_, other.tail_);
    size_ = other.size_;
    return *this;
}

KOVAList::~KOVAList() {
    Clear();
}

void KOVAList::PushBack(void* v) {
    KOVAListNode* const node = new KOVAListNode(v);
    if (!head_)
        point(head_, node);
    if (tail_)
        link(tail_, node);
    point(tail_, node);
    ++size_;
}

void KOVAList::PushFront(void* v) {
    KOVAListNode* const node = new KOVAListNode(v);
    if (head_)
        link(node, head_);
    point(head_, node);
    ++size_;
}

KOVAListNode::KOVAListIterator KOVAList::Find(void* v) noexcept {
    KOVAListNode::KOVAListIterator i = Begin();
    while (i != End() && *i != v)
        ++i;
    return i;
}

void KOVAList::Erase(KOVAListNode::KOVAListIterator position) {
    KOVAListNode* node = nullptr;
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
        KOVAListNode* before = head_;
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

void KOVAList::Unique() {
    if (!head_)
        return;
    KOVAListNode* kept = head_;
    while (KOVAListNode* const next = kept->next_) {
        if (next->value_ == kept->value_)
            Erase(KOVAListNode::KOVAListIterator(next));
        else
            kept = next;
    }
}

void KOVAList::Clear() noexcept {
    // One more holder for the second node: letting go of the first must not release the others, which
    // callers may still reach through iterators.
    if (head_ && head_->holders_ == (head_ == tail_ ? 2U : 1U) && head_->next_)
        ++head_->next_->holders_;
    point(head_, nullptr);
    point(tail_, nullptr);
    size_ = 0;
}
