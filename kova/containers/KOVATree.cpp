#include <kova/containers/KOVATree.h>

#include <cstdio>
#include <memory>
#include <utility>

#include <kova/core/results.h>

using Iterator = KOVATreeNode::KOVATreeNodeIterator;
using Nodes = KOVADynamicArray<KOVATreeNode*>;

static_assert(sizeof(void*) != 4 || sizeof(KOVATree) == 8);
static_assert(sizeof(void*) != 4 || sizeof(KOVATreeNode) == 20);
static_assert(sizeof(void*) != 4 || sizeof(Iterator) == 52);

// --- iterator

Iterator::KOVATreeNodeIterator(KOVATreeNodeIterator const& other) : current_(other.current_), visited_(other.visited_) {
    copyStack(other);
}

Iterator& Iterator::operator=(KOVATreeNodeIterator const& other) {
    if (this != &other) {
        current_ = other.current_;
        visited_ = other.visited_;
        clearStack();
        copyStack(other);
    }
    return *this;
}

void Iterator::copyStack(KOVATreeNodeIterator const& other) {
    for (auto i = other.stack_.Begin(); i != other.stack_.End(); ++i)
        stack_.PushBack(new Frame(*static_cast<Frame const*>(*i)));
}

void Iterator::SetNode(KOVATreeNode* start) {
    Clear();
    current_ = start;
}

void Iterator::Clear() {
    visited_.clear();
    clearStack();
}

KOVATreeNode* Iterator::GetNextNode() {
    if (current_ && stack_.IsEmpty())
        visited_.add(current_); // the start node
    int i = 0;
    while (current_) {
        Nodes const& children = current_->children_;
        for (; i < children.size(); ++i) {
            KOVATreeNode* const child = children[i];
            if (child && visited_.add(child)) {
                push({current_, i});
                return current_ = child;
            }
        }
        if (stack_.IsEmpty()) {
            current_ = nullptr;
        } else {
            Frame const frame = pop();
            current_ = frame.node;
            i = frame.child + 1;
        }
    }
    return nullptr;
}

void* Iterator::GetNextObject() {
    KOVATreeNode const* const node = GetNextNode();
    return node ? node->object_ : nullptr;
}

Iterator::Frame Iterator::pop() {
    std::unique_ptr<Frame> const frame(static_cast<Frame*>(stack_.GetFront()));
    stack_.PopFront();
    return *frame;
}

void Iterator::clearStack() {
    while (!stack_.IsEmpty())
        pop();
}

// --- node

KOVATreeNode::KOVATreeNode(void* object) : object_(object) {
    static std::uint32_t created = 0;
    id_ = static_cast<std::int32_t>(created++ & 0x7FFFFFFFU);
}

KOVATreeNode::~KOVATreeNode() {
    if (isDoomed())
        return; // the destructor that doomed it deletes what is below it too
    Nodes const doomed = doom();
    for (int i = 1; i < doomed.size(); ++i)
        delete doomed[i];
}

/// Marks this node and every node below it and returns them, depth first, this one in front.
KOVADynamicArray<KOVATreeNode*> KOVATreeNode::doom() {
    Nodes doomed;
    Nodes waiting;
    waiting.add(this);
    while (waiting.size() > 0) {
        KOVATreeNode* const node = waiting[waiting.size() - 1];
        waiting.endShrink(1);
        if (node->isDoomed())
            continue;
        node->id_ = ~node->id_;
        doomed.add(node);
        for (int i = node->children_.size() - 1; i >= 0; --i) {
            if (node->children_[i] && !node->children_[i]->isDoomed())
                waiting.add(node->children_[i]);
        }
    }
    return doomed;
}

KOVATreeNode* KOVATreeNode::AddChild(void* object) {
    if (!object)
        return nullptr;
    KOVATreeNode* const node = new KOVATreeNode(object);
    AddChildPtr(node);
    return node;
}

void KOVATreeNode::AddChildPtr(KOVATreeNode* node) {
    children_.add(node);
    if (node)
        node->parents_.add(this);
}

// --- tree

KOVATree::KOVATree(void* object) : root_(new KOVATreeNode(object)) {}

KOVATree::KOVATree(KOVATree const& other) {
    Nodes originals;
    Nodes copies;
    kova::detail::HashIndex<KOVATreeNode*> numbers;
    Iterator nodes(other.root_);
    for (KOVATreeNode* node = other.root_; node; node = nodes.GetNextNode()) {
        numbers.insert(node, originals.size());
        originals.add(node);
        copies.add(new KOVATreeNode(node->object_));
    }
    for (int i = 0; i < originals.size(); ++i) {
        for (int k = 0; k < originals[i]->children_.size(); ++k) {
            KOVATreeNode* const child = originals[i]->children_[k];
            copies[i]->children_.add(child ? copies[*numbers.find(child)] : nullptr);
        }
        for (int k = 0; k < originals[i]->parents_.size(); ++k) {
            if (std::int32_t const* const parent = numbers.find(originals[i]->parents_[k]))
                copies[i]->parents_.add(copies[*parent]);
        }
    }
    if (copies.size() > 0)
        root_ = copies[0];
}

KOVATree::KOVATree(KOVATree&& other) noexcept : root_(std::exchange(other.root_, nullptr)) {}

KOVATree& KOVATree::operator=(KOVATree const& other) {
    KOVATree copy(other);
    std::swap(root_, copy.root_);
    return *this;
}

KOVATree::~KOVATree() {
    delete root_;
}

void KOVATree::SetRoot(void* object) {
    if (root_)
        root_->object_ = object;
    else
        root_ = new KOVATreeNode(object);
}

int KOVATree::GetChildCount() const {
    return root_ ? GetChildCount(root_->object_) : 0;
}

int KOVATree::GetChildCount(void* object) const {
    Iterator nodes(root_);
    KOVATreeNode* found = root_;
    while (found && found->object_ != object)
        found = nodes.GetNextNode();
    if (!found)
        return 0;
    int count = 1;
    for (nodes.SetNode(found); nodes.GetNextNode();)
        ++count;
    return count;
}

KOVIResult KOVATree::Find(void* object, bool (*match)(void*, void*), KOVADynamicArray<KOVATreeNode*>* out) const {
    if (!match || !out)
        return kova::detail::kInvalidArgument;
    Iterator nodes(root_);
    for (KOVATreeNode* node = root_; node; node = nodes.GetNextNode()) {
        if (match(object, node->object_))
            out->add(node);
    }
    return out->size() > 0 ? kova::detail::kSuccess : kova::detail::kNoEntity;
}

void KOVATree::Dump() const {
    if (!root_) {
        std::printf("No Root Node found.\n");
        return;
    }
    auto const printNodes = [](Nodes const& nodes) {
        for (int i = 0; i < nodes.size(); ++i) {
            if (nodes[i])
                std::printf("%d ", static_cast<int>(nodes[i]->id_));
        }
    };
    std::printf("\n\n");
    Iterator nodes(root_);
    for (KOVATreeNode const* node = root_; node; node = nodes.GetNextNode()) {
        std::printf("%d # Parents %d: ", static_cast<int>(node->id_), node->parents_.size());
        printNodes(node->parents_);
        std::printf("\n%d # Children %d: ", static_cast<int>(node->id_), node->children_.size());
        printNodes(node->children_);
        std::printf("\n");
    }
}
