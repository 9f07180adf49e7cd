#pragma once

#include <cstdint>

#include <kova/containers/KOVADynamicArray.h>
#include <kova/containers/KOVAList.h>
#include <kova/containers/hash_index.h>
#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>

/// A node of a KOVATree: an untyped object, which it never owns, its children, which it does, and the nodes
/// under which it is attached.
///
/// Deleting a node deletes every node below it, each once and without recursion, whatever the depth, however
/// many parents a node has, and around cycles. Hazards: a node that hangs in another tree as well goes with
/// the first of the two, so take it out of the children there before; deleting a node of a cycle deletes the
/// whole cycle; and what goes is settled when the first destructor starts, so a derived destructor must not
/// detach or delete children. A node that is deleted alone is to be taken out of its parents' children before.
class KOVA_API KOVATreeNode {
public:
    /// Walks depth first over every node below a start node, each once, however many ways lead there. The
    /// start node itself is not among them, not even in a cycle.
    ///
    ///     KOVATreeNode::KOVATreeNodeIterator nodes(tree.GetRoot());
    ///     while (KOVATreeNode* node = nodes.GetNextNode()) ...
    ///
    /// Nodes may be added on the way; none may be deleted that the walk has met.
    class KOVA_API KOVATreeNodeIterator {
    public:
        explicit KOVATreeNodeIterator(KOVATreeNode* start = nullptr) : current_(start) {}
        KOVATreeNodeIterator(KOVATreeNodeIterator const& other);
        KOVATreeNodeIterator& operator=(KOVATreeNodeIterator const& other);
        ~KOVATreeNodeIterator() { clearStack(); }

        /// Starts anew from the node.
        void SetNode(KOVATreeNode* start);
        /// Forgets where it was; the current node becomes the start node.
        void Clear();

        /// The next node, or its object. Null at the end, and from then on.
        KOVATreeNode* GetNextNode();
        void* GetNextObject();
        /// What was returned last; before that the start node.
        KOVATreeNode* GetCurrentNode() const noexcept { return current_; }
        void* GetCurrentObject() const noexcept { return current_ ? current_->object_ : nullptr; }

    private:
        /// A node on the way to the current one, and which of its children the way takes.
        struct Frame {
            KOVATreeNode* node;
            std::int32_t child;
        };

        void push(Frame const& frame) { stack_.PushFront(new Frame(frame)); }
        Frame pop();
        void clearStack();
        void copyStack(KOVATreeNodeIterator const& other);

        KOVATreeNode* current_;
        kova::detail::HashSet<KOVATreeNode*> visited_;
        KOVAList stack_; ///< the innermost frame is in front, where taking it costs the same at any depth
    };

    explicit KOVATreeNode(void* object = nullptr);
    KOVATreeNode(KOVATreeNode const&) = delete;
    KOVATreeNode& operator=(KOVATreeNode const&) = delete;
    virtual ~KOVATreeNode();

    /// A new node at the end of the children; null, and none is added, for a null object.
    KOVATreeNode* AddChild(void* object);
    /// Adds a node to the children, made with new, which may have other parents already. Callers depend on a
    /// null one being added too; it is skipped wherever children are visited.
    void AddChildPtr(KOVATreeNode* node);

    // In order of attachment. Taking a node out of one array leaves the other as it is. Hazard: Dump reads
    // every parent, so take out those that are deleted before.
    KOVADynamicArray<KOVATreeNode*>& GetChildren() noexcept { return children_; }
    KOVADynamicArray<KOVATreeNode*> const& GetChildren() const noexcept { return children_; }
    KOVADynamicArray<KOVATreeNode*>& GetParents() noexcept { return parents_; }
    KOVADynamicArray<KOVATreeNode*> const& GetParents() const noexcept { return parents_; }

    void SetObjectPtr(void* object) noexcept { object_ = object; }
    void* GetObjectPtr() const noexcept { return object_; }

private:
    friend class KOVATree;

    bool isDoomed() const noexcept { return id_ < 0; }
    KOVADynamicArray<KOVATreeNode*> doom();

    std::int32_t id_; ///< counted from 0 over all trees; complemented once the node is to be deleted
    KOVADynamicArray<KOVATreeNode*> parents_;
    KOVADynamicArray<KOVATreeNode*> children_;
    void* object_;
};

/// Nodes under one root, which carry objects of the caller. A node may be attached under several others, so
/// the tree may be any graph.
///
///     KOVATree assembly(&product);
///     KOVATreeNode* wheel = assembly.GetRoot()->AddChild(&front)->AddChild(&shape);
///     assembly.GetRoot()->AddChild(&rear)->AddChildPtr(wheel);      // the same wheel twice
///     int n = assembly.GetChildCount();                             // 4
class KOVA_API KOVATree {
public:
    /// With a root that carries the object.
    explicit KOVATree(void* object = nullptr);
    /// New nodes for the same objects, linked in the same way.
    KOVATree(KOVATree const& other);
    /// Leaves the other one without a root.
    KOVATree(KOVATree&& other) noexcept;
    KOVATree& operator=(KOVATree const& other);
    virtual ~KOVATree();

    /// Null only after the tree was moved from.
    KOVATreeNode* GetRoot() const noexcept { return root_; }
    /// Sets the root's object.
    void SetRoot(void* object);

    /// The number of nodes. Callers depend on the root counting too.
    int GetChildCount() const;
    /// The number of nodes from the first one that carries the object, itself included; 0 when there is none.
    int GetChildCount(void* object) const;
    /// Appends every node, the root first, for which match(object, the node's object) holds. Invalid Argument
    /// for a null match or out; No Entity to Translate when out is empty afterwards. Callers depend on earlier
    /// contents counting.
    KOVIResult Find(void* object, bool (*match)(void*, void*), KOVADynamicArray<KOVATreeNode*>* out) const;

    /// Writes each node's number, parents and children to standard output.
    void Dump() const;

private:
    KOVATreeNode* root_ = nullptr;
};
