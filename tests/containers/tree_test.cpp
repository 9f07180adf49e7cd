#include <random>

#include "support/test.h"

namespace {

KOVATree first; // before any other node

/// Its objects are the numbers from 1 on, as addresses.
void* object(long number) { return reinterpret_cast<void*>(number); }
long number(void const* object) { return static_cast<long>(reinterpret_cast<std::intptr_t>(object)); }

Numbers deleted;

struct Logged : KOVATreeNode {
    using KOVATreeNode::KOVATreeNode;
    ~Logged() override { deleted.push_back(number(GetObjectPtr())); }
};

/// A graph as lists of children, 0 for a null child; node 1 is the root.
using Graph = std::vector<Numbers>;

Numbers preorder(Graph const& graph, long from) {
    Numbers order;
    std::vector<bool> seen(graph.size());
    auto const visit = [&](auto const& self, long node) -> void {
        if (node == 0 || seen[static_cast<std::size_t>(node)]) return;
        seen[static_cast<std::size_t>(node)] = true;
        order.push_back(node);
        for (long const child : graph[static_cast<std::size_t>(node)]) self(self, child);
    };
    visit(visit, from);
    return order;
}

Numbers walked(KOVATreeNode::KOVATreeNodeIterator nodes, std::size_t most = 10000) {
    Numbers order;
    while (order.size() < most) {
        void* const next = nodes.GetNextObject();
        EXPECT_EQ(next, nodes.GetCurrentObject());
        if (!next) break;
        order.push_back(number(next));
    }
    return order;
}

TEST(Tree, RandomGraphsAreWalkedCopiedAndDeletedOnce) {
    std::mt19937 random(20);
    for (int round = 0; round < 300; ++round) {
        std::size_t const n = 1 + random() % 40;
        Graph graph(n + 1);
        std::vector<KOVATreeNode*> nodes(n + 1, nullptr);
        for (std::size_t i = 1; i <= n; ++i) nodes[i] = new Logged(object(static_cast<long>(i)));
        for (std::size_t edges = random() % (3 * n); edges > 0; --edges) {
            std::size_t const parent = 1 + random() % n, child = random() % (n + 1);
            graph[parent].push_back(static_cast<long>(child));
            nodes[parent]->AddChildPtr(nodes[child]);
        }
        KOVATree tree;
        tree.GetRoot()->AddChildPtr(nodes[1]);
        Numbers const order = preorder(graph, 1);
        ASSERT_EQ(walked(KOVATreeNode::KOVATreeNodeIterator(tree.GetRoot())), order);
        KOVATree const copy = KOVATree(tree);
        ASSERT_EQ(walked(KOVATreeNode::KOVATreeNodeIterator(copy.GetRoot())), order);
        EXPECT_EQ(copy.GetChildCount(), static_cast<int>(order.size()) + 1);
        for (long const node : order)
            EXPECT_EQ(copy.GetChildCount(object(node)), static_cast<int>(preorder(graph, node).size()));
        // From any node, in a cycle or not; stopped on the way, copied and assigned.
        KOVATreeNode::KOVATreeNodeIterator some;
        some.SetNode(nodes[static_cast<std::size_t>(order[random() % order.size()])]);
        Numbers expected = preorder(graph, number(some.GetCurrentObject()));
        expected.erase(expected.begin());
        for (std::size_t steps = random() % (expected.size() + 1); steps > 0; --steps) {
            some.GetNextNode();
            expected.erase(expected.begin());
        }
        KOVATreeNode::KOVATreeNodeIterator same(nodes[1]);
        same.GetNextNode();
        same = some;
        ASSERT_EQ(walked(same), expected);
        ASSERT_EQ(walked(some), expected);
        for (std::size_t i = 1; i <= n; ++i) { // what cannot be reached goes by itself
            if (std::find(order.begin(), order.end(), static_cast<long>(i)) == order.end()) {
                nodes[i]->GetChildren().clear();
                delete nodes[i];
            }
        }
        deleted.clear();
        KOVATree const assigned = (tree = copy, tree);
        EXPECT_EQ(deleted, order);
        ASSERT_EQ(walked(KOVATreeNode::KOVATreeNodeIterator(assigned.GetRoot())), order);
    }
}

TEST(Tree, AChainOfAMillionNodes) {
    KOVATree tree(object(1));
    KOVATreeNode* last = tree.GetRoot();
    for (int i = 2; i <= 1000000; ++i) last = last->AddChild(object(i));
    EXPECT_EQ(tree.GetChildCount(), 1000000);
    KOVATreeNode::KOVATreeNodeIterator nodes(last);
    EXPECT_EQ(nodes.GetNextNode(), nullptr);
    EXPECT_EQ(nodes.GetCurrentNode(), nullptr);
}

TEST(Tree, ClearGoesOnFromTheCurrentNode) {
    KOVATree tree;
    tree.GetRoot()->AddChild(object(1))->AddChild(object(2))->AddChildPtr(tree.GetRoot());
    KOVATreeNode::KOVATreeNodeIterator nodes(tree.GetRoot());
    nodes.GetNextNode();
    nodes.Clear();
    EXPECT_EQ(number(nodes.GetCurrentObject()), 1);
    EXPECT_EQ(number(nodes.GetNextObject()), 2);
    EXPECT_EQ(nodes.GetNextNode(), tree.GetRoot());
    EXPECT_EQ(nodes.GetNextNode(), nullptr);
}

bool isAbove(void* limit, void* candidate) { return number(candidate) > number(limit); }

TEST(Tree, FindsAndCounts) {
    KOVATree tree(object(9));
    KOVATreeNode* const a = tree.GetRoot()->AddChild(object(3));
    KOVATreeNode* const c = a->AddChild(object(7));
    KOVATreeNode* const b = tree.GetRoot()->AddChild(object(3));
    b->AddChildPtr(c);
    EXPECT_EQ(tree.GetRoot()->AddChild(nullptr), nullptr);
    EXPECT_EQ((Numbers{tree.GetRoot()->GetChildren().size(), tree.GetChildCount(), tree.GetChildCount(object(3)),
                       tree.GetChildCount(object(5))}),
              (Numbers{2, 4, 2, 0}));
    KOVADynamicArray<KOVATreeNode*> out;
    EXPECT_EQ((Numbers{tree.Find(object(1), nullptr, &out), tree.Find(object(1), isAbove, nullptr)}),
              (Numbers{0x0100000B, 0x0100000B}));
    EXPECT_EQ(tree.Find(object(9), isAbove, &out), 0x00000002);
    EXPECT_EQ(tree.Find(object(5), isAbove, &out), 0);
    EXPECT_TRUE(out.size() == 2 && out[0] == tree.GetRoot() && out[1] == c);
    EXPECT_EQ(tree.Find(object(9), isAbove, &out), 0); // what was in it before counts
    tree.SetRoot(object(1));
    EXPECT_EQ(number(tree.GetRoot()->GetObjectPtr()), 1);
}

std::string dump(KOVATree const& tree) {
    testing::internal::CaptureStdout();
    tree.Dump();
    return testing::internal::GetCapturedStdout();
}

TEST(Tree, DumpsToTheByte) {
    EXPECT_EQ(dump(first), "\n\n0 # Parents 0: \n0 # Children 0: \n");
    KOVATree tree;
    std::string const text = dump(tree);
    int const root = std::stoi(text.substr(2));
    EXPECT_GT(root, 0);
    KOVATreeNode* const child = tree.GetRoot()->AddChild(object(1));
    tree.GetRoot()->AddChildPtr(nullptr);
    child->AddChild(object(2))->AddChildPtr(child);
    std::string const r = std::to_string(root), a = std::to_string(root + 1), b = std::to_string(root + 2);
    EXPECT_EQ(dump(tree), "\n\n" + r + " # Parents 0: \n" + r + " # Children 2: " + a + " \n" + a +
                              " # Parents 2: " + r + " " + b + " \n" + a + " # Children 1: " + b + " \n" + b +
                              " # Parents 1: " + a + " \n" + b + " # Children 1: " + a + " \n");
    KOVATree const moved(std::move(tree));
    EXPECT_EQ(moved.GetChildCount(), 3);
    EXPECT_EQ(dump(tree), "No Root Node found.\n"); // NOLINT(bugprone-use-after-move)
    EXPECT_TRUE(tree.GetChildCount() == 0 && KOVATree(tree).GetRoot() == nullptr);
    tree.SetRoot(object(4));
    EXPECT_EQ(tree.GetChildCount(object(4)), 1);
}

} // namespace
