#include <random>

#include "support/test.h"

namespace {

using Iterator = KOVATreeNode::KOVATreeNodeIterator;

KOVATree first; // before any other node

/// The objects are numbers, as addresses.
void* object(std::size_t number) { return reinterpret_cast<void*>(number); }
long number(void const* object) { return static_cast<long>(reinterpret_cast<std::intptr_t>(object)); }

Numbers deleted;

struct Logged : KOVATreeNode {
    using KOVATreeNode::KOVATreeNode;
    ~Logged() override { deleted.push_back(number(GetObjectPtr())); }
};

/// The plain statement of the order: by recursion.
void visit(KOVATreeNode* node, Numbers& seen) {
    if (!node || testing::Value(seen, testing::Contains(number(node->GetObjectPtr())))) return;
    seen.push_back(number(node->GetObjectPtr()));
    for (int i = 0; i < node->GetChildren().size(); ++i) visit(node->GetChildren()[i], seen);
}

Numbers expectedBelow(KOVATreeNode* start) {
    Numbers seen;
    visit(start, seen);
    return Numbers(seen.begin() + 1, seen.end());
}

/// Of two copies at every step.
Numbers below(Iterator nodes) {
    Numbers result;
    Iterator other(nodes.GetCurrentNode());
    while (KOVATreeNode* const node = Iterator(nodes).GetNextNode()) {
        other = nodes;
        nodes.GetNextNode();
        EXPECT_TRUE(other.GetNextObject() == nodes.GetCurrentObject() && nodes.GetCurrentNode() == node);
        result.push_back(number(node->GetObjectPtr()));
    }
    return result;
}

TEST(Tree, RandomGraphsAreWalkedCopiedAndDeletedOnce) {
    std::mt19937 random(20);
    for (int round = 0; round < 100; ++round) {
        std::size_t const n = 1 + random() % 40;
        std::vector<KOVATreeNode*> nodes = {nullptr};
        while (nodes.size() <= n) nodes.push_back(new Logged(object(nodes.size())));
        KOVATree tree;
        for (std::size_t i = 1; i <= n; ++i) tree.GetRoot()->AddChildPtr(nodes[i]);
        for (std::size_t edges = random() % (3 * n); edges > 0; --edges) {
            std::size_t const parent = 1 + random() % n;
            nodes[parent]->AddChildPtr(nodes[random() % (n + 1)]);
        }
        KOVATree const copy(tree);
        Numbers const order = expectedBelow(tree.GetRoot());
        Numbers const belowFirst = expectedBelow(nodes[1]); // in a cycle or not
        for (KOVATreeNode* const root : {tree.GetRoot(), copy.GetRoot()}) {
            ASSERT_EQ(below(Iterator(root)), order);
            ASSERT_EQ(below(Iterator(root->GetChildren()[0])), belowFirst);
        }
        EXPECT_EQ(static_cast<std::size_t>(copy.GetChildCount()), n + 1);
        EXPECT_EQ(static_cast<std::size_t>(copy.GetChildCount(object(1))), belowFirst.size() + 1);
        deleted.clear();
        tree = copy;
        EXPECT_EQ(deleted, order);
        ASSERT_EQ(below(Iterator(tree.GetRoot())), order);
    }
}

TEST(Tree, AChainOfAMillionNodes) {
    KOVATree tree(object(1));
    KOVATreeNode* last = tree.GetRoot();
    for (std::size_t i = 2; i <= 1000000; ++i) last = last->AddChild(object(i));
    EXPECT_EQ(tree.GetChildCount(), 1000000);
    Iterator nodes(tree.GetRoot());
    nodes.GetNextNode();
    nodes.Clear(); // goes on from here
    EXPECT_EQ(number(nodes.GetNextObject()), 3);
    nodes.SetNode(last);
    EXPECT_TRUE(nodes.GetNextNode() == nullptr && nodes.GetCurrentNode() == nullptr);
}

bool isAbove(void* limit, void* candidate) { return number(candidate) > number(limit); }

TEST(Tree, FindsAndCounts) {
    KOVATree tree(object(9));
    KOVATreeNode* const shared = tree.GetRoot()->AddChild(object(3))->AddChild(object(7));
    tree.GetRoot()->AddChild(object(3))->AddChildPtr(shared);
    EXPECT_EQ(tree.GetRoot()->AddChild(nullptr), nullptr);
    EXPECT_EQ((Numbers{tree.GetRoot()->GetChildren().size(), shared->GetParents().size(), tree.GetChildCount(),
                       tree.GetChildCount(object(3)), tree.GetChildCount(object(5))}),
              (Numbers{2, 2, 4, 2, 0}));
    KOVADynamicArray<KOVATreeNode*> out;
    EXPECT_EQ((Numbers{tree.Find(object(1), nullptr, &out), tree.Find(object(1), isAbove, nullptr),
                       tree.Find(object(9), isAbove, &out), tree.Find(object(5), isAbove, &out)}),
              (Numbers{0x0100000B, 0x0100000B, 0x00000002, 0}));
    EXPECT_TRUE(out.size() == 2 && out[0] == tree.GetRoot() && out[1] == shared);
    EXPECT_EQ(tree.Find(object(9), isAbove, &out), 0); // what was in it before counts
}

std::string dump(KOVATree const& tree) {
    testing::internal::CaptureStdout();
    tree.Dump();
    return testing::internal::GetCapturedStdout();
}

TEST(Tree, DumpsToTheByte) {
    EXPECT_EQ(dump(first), "\n\n0 # Parents 0: \n0 # Children 0: \n");
    KOVATree tree;
    int const root = std::stoi(dump(tree).substr(2));
    EXPECT_GT(root, 0);
    std::string const r = std::to_string(root), a = std::to_string(root + 1), b = std::to_string(root + 2);
    KOVATreeNode* const child = tree.GetRoot()->AddChild(object(1));
    tree.GetRoot()->AddChildPtr(nullptr);
    child->AddChild(object(2))->AddChildPtr(child);
    EXPECT_EQ(dump(tree), "\n\n" + r + " # Parents 0: \n" + r + " # Children 2: " + a + " \n" + a +
                              " # Parents 2: " + r + " " + b + " \n" + a + " # Children 1: " + b + " \n" + b +
                              " # Parents 1: " + a + " \n" + b + " # Children 1: " + a + " \n");
    KOVATree const moved(std::move(tree));
    EXPECT_EQ(dump(tree), "No Root Node found.\n"); // NOLINT(bugprone-use-after-move)
    EXPECT_TRUE(moved.GetChildCount() == 3 && tree.GetChildCount() == 0 && KOVATree(tree).GetRoot() == nullptr);
    tree.SetRoot(object(4));
    EXPECT_EQ(tree.GetChildCount(object(4)), 1);
}

} // namespace
