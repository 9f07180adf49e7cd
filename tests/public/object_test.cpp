#include "support/test.h"

namespace {

int alive = 0;

struct Body : KOVIObjectImpl {
    Body() : KOVIObjectImpl("Body") { ++alive; }
    ~Body() override { --alive; }
};

class Handle : public KOVIObject {
public:
    explicit Handle(KOVIObjectImpl* body, char const* tag = "Handle") : KOVIObject(tag) { SetData(body); }
    using KOVIObject::Ref;
    using KOVIObject::Unref;
};

int countOf(Handle& handle) {
    int const count = handle.Ref() - 1;
    return handle.Unref() == count ? count : -1;
}

TEST(PublicObject, TheLastHandleDeletesTheBody) {
    Handle first(new Body);
    {
        Handle second(first), third(nullptr);
        third = second;
        EXPECT_EQ(countOf(first), 3);
        Handle const& same = second;
        second = same;
        second.SetData(first.GetData());
        EXPECT_EQ(countOf(first), 3);
        third = Handle(new Body);
        EXPECT_TRUE(alive == 2 && countOf(first) == 2 && countOf(third) == 1);
        third.SetData(nullptr);
        EXPECT_TRUE(alive == 1 && !third.IsValid() && third.Ref() == 0 && third.Unref() == 0);
    }
    EXPECT_TRUE(alive == 1 && countOf(first) == 1 && first.IsValid() && !Handle(new Body, nullptr).IsValid());
    first = Handle(nullptr);
    EXPECT_EQ(alive, 0);
}

/// A body that holds a handle to the next one.
struct Link : Body {
    explicit Link(Body* successor) : next(successor) {}
    Handle next;
};

TEST(PublicObject, AHandleIsAssignedOutOfTheBodyThatItReleases) {
    Link* const front = new Link(new Body);
    Handle handle(front);
    handle = front->next;
    EXPECT_TRUE(alive == 1 && countOf(handle) == 1);
    handle.SetData(nullptr);
    EXPECT_EQ(alive, 0);
}

std::string debugName(KOVIObject const& handle) { return KOVIObjectImpl::Cast(handle.GetData())->GetName(); }

TEST(PublicObject, BodiesAreNumbered) {
    int const before = KOVIObjectImpl::_objectCounter;
    Texts names, expected;
    { names = {debugName(KOVIValue(1)), debugName(KOVIOptions()), debugName(KOVIUnit()), debugName(KOVIFile("x"))}; }
    names.push_back(debugName(KOVIName("y")));
    int number = before;
    for (char const* tag : {"KOVIValue", "KOVIOptions", "KOVIUnit", "KOVIFile", "KOVIName"})
        expected.push_back(std::string(tag) + "[" + std::to_string(++number) + "]");
    EXPECT_EQ(names, expected);
    KOVIObjectImpl untagged;
    EXPECT_TRUE(KOVIObjectImpl::_objectCounter == number && !untagged.GetName());
    KOVAString name("mine");
    untagged.SetName(name);
    EXPECT_STREQ(untagged.GetName(), "mine");
}

template <class Name> class PublicName : public testing::Test {};
using Names = testing::Types<KOVIName, KOVIComponentName, KOVIReaderWriterName, KOVIRepresentationName, KOVIOptionName>;
TYPED_TEST_SUITE(PublicName, Names);

TYPED_TEST(PublicName, IsMadeFromATextAndCopied) {
    TypeParam none, nothing(static_cast<char const*>(nullptr)), name("text");
    EXPECT_FALSE(none.IsValid() || none.GetText() || nothing.IsValid() || nothing.GetData());
    TypeParam copy(name);
    none = name;
    name = TypeParam("");
    EXPECT_TRUE(copy.GetData() == none.GetData() && name.IsValid());
    EXPECT_STREQ(copy.GetText(), "text");
    KOVINameImpl* const body = static_cast<KOVINameImpl*>(KOVIObjectImpl::Cast(copy.GetData()));
    KOVAString text;
    EXPECT_TRUE(body->SetName("other") == 0 && body->GetName(text) == 0);
    EXPECT_EQ(test::text(text), none.GetText());
}

TEST(PublicName, ConstantsHaveTheirTextsForEver) {
    struct {
        KOVIObject const& constant;
        char const *kind, *text;
    } const rows[] = {
#define KOVI_NAME(handle, identifier, text) {handle::identifier, #handle, text},
#include <kova/public/names.def>
    };
    Texts names;
    std::string kinds;
    for (auto const& row : rows) {
        std::string const name = debugName(row.constant);
        void* const body = row.constant.GetData();
        { Handle(nullptr).SetData(body); }
        names.push_back(name);
        kinds += row.kind[4];
        EXPECT_EQ(name.substr(0, name.find('[')), row.kind);
        EXPECT_EQ(static_cast<KOVINameHandle const&>(row.constant).GetText(), std::string(row.text));
        EXPECT_TRUE(row.constant.IsValid() && row.constant.GetData() == body) << row.text;
    }
    EXPECT_EQ(kinds, "RRRRRRRRCCCCC" + std::string(139, 'O'));
    std::sort(names.begin(), names.end());
    EXPECT_EQ(std::unique(names.begin(), names.end()), names.end());
    EXPECT_EQ(
        (Texts{KOVIComponentName::Any.GetText(), KOVIComponentName::PLY.GetText(),
               KOVIReaderWriterName::Writer.GetText(), KOVIRepresentationName::BRep.GetText(),
               KOVIOptionName::AcceptBadData.GetText(), KOVIOptionName(KOVIOptionName::WriteTolerance).GetText()}),
        (Texts{"*", "PLY", "Writer", "BRep", "AcceptBadData", "WriteTolerance"}));
}

} // namespace
