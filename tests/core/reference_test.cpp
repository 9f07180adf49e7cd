#include "support/test.h"

namespace {

int alive = 0;

class Counted : public KOVAReferenceCount {
public:
    Counted() : KOVAReferenceCount(0) { ++alive; }
    Counted(Counted const& other) : KOVAReferenceCount(other) { ++alive; }
    ~Counted() override { --alive; }
};

class Handle : public KOVAReferenceHandle {
public:
    explicit Handle(Counted* counted) : KOVAReferenceHandle(counted) {}
    unsigned count() const { return GetInstance()->GetReferenceCount(); }
};

TEST(Reference, TheLastHandleDeletes) {
    Counted* const object = new Counted;
    Handle first(object);
    EXPECT_TRUE(first.IsLastCall());
    {
        Handle second(first);
        EXPECT_EQ(first.count(), 2U);
        EXPECT_FALSE(second.IsLastCall());
        second = first;
        Handle const& same = second;
        second = same;
        EXPECT_EQ(first.count(), 2U);
        EXPECT_TRUE(second == first);
    }
    EXPECT_TRUE(first.IsLastCall());
    EXPECT_EQ(alive, 1);
    first = Handle(new Counted);
    EXPECT_EQ(alive, 1);
    first = Handle(nullptr);
    EXPECT_EQ(alive, 0);
    EXPECT_FALSE(first.IsValid());
    EXPECT_FALSE(first.IsLastCall());
}

TEST(Reference, CopiesAndLoweringStartAndStopAtZero) {
    Counted object;
    EXPECT_TRUE(object.LowerReference() == 0 && object.RaiseReference() == 1 && object.GetName() == nullptr);
    EXPECT_TRUE(Counted(object).GetReferenceCount() == 0 && object.LowerReference() == 0);
}

/// An object that holds a handle of its own kind: the chain is let go link by link.
class Link : public Counted {
public:
    explicit Link(Counted* successor) : next(successor) {}
    Handle next;
};

TEST(Reference, AssigningAHandleOutOfTheObjectThatItReleases) {
    Link* const tail = new Link(nullptr);
    Link* const front = new Link(tail);
    Handle handle(front);
    handle = front->next; // releases front, and with it the handle that is assigned
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(handle.count(), 1U);
    handle = Handle(nullptr);
    EXPECT_EQ(alive, 0);
}

} // namespace
