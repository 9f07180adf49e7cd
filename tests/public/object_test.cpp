#include <set>

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
    Texts const names = {debugName(KOVIValue(1)), debugName(KOVIOptions()), debugName(KOVIUnit()),
                         debugName(KOVIFile("x")), debugName(KOVIName("y"))};
    int number = before;
    for (char const* tag : {"KOVIValue", "KOVIOptions", "KOVIUnit", "KOVIFile", "KOVIName"}) {
        std::string const& name = names[std::size_t(number - before)];
        EXPECT_EQ(name, tag + ("[" + std::to_string(++number) + "]"));
    }
    KOVIObjectImpl untagged;
    EXPECT_TRUE(KOVIObjectImpl::_objectCounter == number && !untagged.GetName());
    KOVAString name("mine");
    untagged.SetName(name);
    EXPECT_STREQ(untagged.GetName(), "mine");
}

template <class Name> class PublicName : public testing::Test {};
using Names = testing::Types<KOVIName, KOVIComponentName, KOVIReaderWriterName, KOVIRepresentationName, KOVIOptionName>;
TYPED_TEST_SUITE(PublicName, Names, );

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
    std::string kinds;
    std::set<std::string> names;
    auto const check = [&](KOVINameHandle const& constant, std::string const& kind, std::string const& text) {
        void* const body = constant.GetData();
        { Handle(nullptr).SetData(body); }
        std::string const name = debugName(constant);
        EXPECT_TRUE(name.substr(0, name.find('[')) == kind && constant.GetText() == text && names.insert(name).second);
        EXPECT_TRUE(constant.IsValid() && constant.GetData() == body) << text;
        kinds += kind[4];
    };
#define KOVI_NAME(handle, identifier, text) check(handle::identifier, #handle, text);
#include <kova/public/names.def>
    EXPECT_EQ(kinds, "RRRRRRRRCCCCC" + std::string(139, 'O'));
    EXPECT_EQ((Texts{KOVIComponentName::Any.GetText(), KOVIRepresentationName::BRep.GetText(),
                     KOVIOptionName(KOVIOptionName::WriteTolerance).GetText()}),
              (Texts{"*", "BRep", "WriteTolerance"}));
}

} // namespace
