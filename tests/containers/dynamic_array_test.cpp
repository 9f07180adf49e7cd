#include "support/test.h"

namespace {

/// Counts itself, owns heap memory, and has no assignment.
class Element {
public:
    Element() : Element(0) {}
    Element(int value) : value_(new int(value)) { ++alive; }
    Element(Element const& other) : Element(*other.value_) {}
    Element& operator=(Element const&) = delete;
    ~Element() {
        delete value_;
        --alive;
    }
    int value() const { return *value_; }
    static int alive;

private:
    int* value_;
};
int Element::alive = 0;

using Elements = KOVADynamicArray<Element>;
using Values = std::vector<int>;

Values values(Elements const& array) {
    Values result;
    for (int i = 0; i < array.size(); ++i) result.push_back(array[i].value());
    return result;
}

Elements counting(int n) {
    Elements array;
    for (int i = 1; i <= n; ++i) array.add(Element(i));
    return array;
}

TEST(DynamicArray, ConstructsAndDestroysEachElementOnce) {
    {
        Elements array = counting(40);
        EXPECT_EQ(Element::alive, 40);
        array.removeAt(0);
        array.insert(0, Element(7));
        array.insert(array.size(), Element(8));
        EXPECT_EQ((Numbers{array[0].value(), array[40].value(), Element::alive}), (Numbers{7, 8, 41}));
        array.clear();
        EXPECT_EQ(Element::alive, 0);
        array.endGrow(3);
    }
    EXPECT_EQ(Element::alive, 0);
}

TEST(DynamicArray, HoldersShareOneBlock) {
    Elements first = counting(2);
    {
        Elements second = first;
        EXPECT_TRUE(second == first);
        EXPECT_EQ(second.getHash(), first.getHash());
        second.add(Element(3));
        Elements const own = second.copy();
        EXPECT_FALSE(own == first);
        EXPECT_EQ(values(own), (Values{1, 2, 3}));
        second.purge(); // leaves the block to the first holder
        EXPECT_EQ(second.size(), 0);
        second = first;
    }
    EXPECT_EQ(values(first), (Values{1, 2, 3}));
    EXPECT_EQ(Element::alive, 3);
    Elements& same = first;
    first = same;
    first = counting(1);
    EXPECT_EQ(Element::alive, 1);
}

TEST(DynamicArray, TakesItsOwnElements) {
    Elements array = counting(10); // full: the next addition moves the block
    array.add(array[0]);
    array.insert(0, array[1]);
    array.append(array);
    EXPECT_EQ(array.size(), 24);
    EXPECT_EQ((Values{array[0].value(), array[11].value(), array[12].value(), array[23].value()}),
              (Values{2, 1, 2, 1}));
}

TEST(DynamicArray, ReversesAndResizes) {
    for (int n : {0, 1, 4, 5}) {
        Elements array = counting(n);
        array.reverse();
        for (int i = 0; i < n; ++i) EXPECT_EQ(array[i].value(), n - i);
    }
    Elements array = counting(3);
    EXPECT_TRUE(array.resize(5));
    EXPECT_EQ(values(array), (Values{1, 2, 3, 0, 0}));
    EXPECT_TRUE(array.resize(2) && Elements(array.copy()).resize(-1));
    EXPECT_TRUE(array.frontGrow(1));
    EXPECT_EQ(values(array), (Values{0, 1, 2}));
    EXPECT_TRUE(array.frontShrink(2));
    EXPECT_TRUE(array.frontGrow(-1) && array.endGrow(-1));
    EXPECT_EQ(values(array), Values{2});
    EXPECT_EQ(values(Elements(2, Element(6))), (Values{6, 6}));
    EXPECT_EQ(Elements(-1, Element(6)).size(), 0);
}

TEST(Stack, CopiesAreIndependent) {
    int a = 0, b = 0;
    KOVAStack stack;
    EXPECT_TRUE(stack.Pop() == nullptr && stack.GetTop() == nullptr);
    EXPECT_TRUE(stack.Push(&a) == 1 && stack.Push(&b) == 2);
    KOVAStack copy(stack);
    EXPECT_TRUE(copy.Pop() == &b && copy.Pop() == &a && copy.IsEmpty());
    EXPECT_TRUE(stack.GetTop() == &b && stack.ElementAt(0) == &a);
    copy = stack;
    EXPECT_EQ(copy.Size(), 2);
}

} // namespace
