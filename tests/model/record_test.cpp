#include <cmath>
#include <numeric>
#include <sstream>

#include "support/test.h"

namespace {

constexpr long kFailed = 0x01000001;

/// Points, normals, faces, colours: each count, and the sum of what is there.
Numbers contents(KOVASurfacicShell const& shell) {
    int counts[4], *faces;
    float *points, *normals, *colors;
    EXPECT_EQ(shell.GetPoints(counts[0], points) | shell.GetNormals(counts[1], normals) |
                  shell.GetFaces(counts[2], faces) | shell.GetColors(counts[3], colors),
              0);
    auto const sum = [](auto const* data, int n) { return static_cast<long>(std::accumulate(data, data + n, 0.0F)); };
    return {counts[0], sum(points, 3 * counts[0]), counts[1], sum(normals, 3 * counts[1]),
            counts[2], sum(faces, counts[2]),      counts[3], sum(colors, 3 * counts[3])};
}

TEST(Shell, RefersToArraysOrCopiesThem) {
    float points[] = {1, 2, 3, 4, 5, 6}, normals[] = {0, 0, 1}, colors[] = {10, 20, 30};
    int faces[] = {0, 1, 0, 1};
    KOVASurfacicShell shell(-5, 2, 3), owner(0, 0, 0), empty(1, 1, 1);
    EXPECT_EQ(contents(shell), Numbers(8));
    EXPECT_EQ(shell.SetData(2, points, 1, normals, 4, faces, 1, colors) |
                  owner.CopyData(2, points, 1, normals, 4, faces, 1, colors) |
                  empty.CopyData(0, nullptr, 0, nullptr, 4, faces, 0, nullptr),
              0);
    faces[0] = 7;
    points[0] = 101;
    EXPECT_EQ(contents(KOVASurfacicShell(shell)), (Numbers{2, 121, 1, 1, 4, 9, 1, 60}));
    Numbers const refused = {owner.CopyData(-1, points, 1, normals, 4, faces, 1, colors),
                             owner.CopyData(2, points, 1, nullptr, 4, faces, 1, colors),
                             owner.CopyData(2, points, 1, normals, 1, nullptr, 1, colors),
                             owner.CopyData(2, points, 1, normals, 4, faces, -1, nullptr)};
    EXPECT_THAT(refused, testing::Each(0x0100000B));
    EXPECT_EQ(contents(owner), (Numbers{2, 21, 1, 1, 4, 2, 1, 60}));
    EXPECT_EQ(contents(empty), (Numbers{0, 0, 0, 0, 4, 2, 0, 0}));
    KOVAStrippedShell const stripped(7, 1, 0);
    KOVASurfacicShell const& base = stripped;
    EXPECT_EQ((Numbers{base.IsStripped(), base.GetKey(), base.GetLOD(), base.GetPass()}), (Numbers{1, 7, 1, 0}));
    EXPECT_EQ((Numbers{shell.IsStripped(), shell.GetKey(), shell.GetLOD(), shell.GetPass()}), (Numbers{0, -5, 2, 3}));
}

struct OwningPolylines : KOVAPolylineSet {
    explicit OwningPolylines(float* points) : KOVAPolylineSet(1) { points_ = points, owned_ = 1; }
};

TEST(PolylineSet, RefersToArrays) {
    float const points[] = {1, 2, 3}, colors[] = {4, 5, 6};
    int const lines[] = {0, 0};
    KOVAPolylineSet set(42), copy(2);
    EXPECT_EQ(set.SetData(1, points, 2, lines, 3, colors), 0);
    copy = KOVAPolylineSet(set);
    int counts[3], *l;
    float *p, *c;
    EXPECT_EQ(copy.GetPoints(counts[0], p) | copy.GetPolylines(counts[1], l) | copy.GetColors(counts[2], c), 0);
    EXPECT_TRUE(counts[0] == 1 && counts[1] == 2 && counts[2] == 3 && p == points && l == lines && c == colors &&
                copy.GetKey() == 42);
    OwningPolylines const owning(new float[3]); // what it does not release, the leak checker finds
}

TEST(SelectionSet, HoldsEachMemberOnceAndCopiesDeeply) {
    std::vector<int> entities(2000);
    KOVASelectionSet set("walls", true);
    for (std::size_t i = 0; i < 4000; i += 2) ASSERT_EQ(set.AddMember(&entities[i % 2000]), 0); // twice
    KOVASelectionSet const copy(set);
    KOVASelectionSet other("other", false);
    EXPECT_TRUE(set.AddMember(nullptr) == kFailed && other.AddMember(&entities[1]) == 0);
    other = copy;
    set.AddMember(&entities[1]);
    for (std::size_t i = 0; i < entities.size(); ++i) ASSERT_EQ(other.IsMember(&entities[i]), i % 2 == 0);
    EXPECT_TRUE(set.IsMember(&entities[1]) && !copy.IsMember(&entities[1]) && !set.IsMember(nullptr));
    EXPECT_TRUE(other.GetName() == "walls" && other.IsCurrent());
}

/// "name current type: layers"
std::string described(KOVALayerFilter const& filter) {
    KOVAString name("-");
    bool current = false, all = false;
    KOVALayerFilter::eLayerFilterType type;
    int n = -1, layer = 0;
    filter.GetName(name);
    EXPECT_EQ(filter.IsCurrent(current) | filter.IsALLLayerFilter(all) | filter.GetLayerFilterType(type) |
                  filter.GetNumLayers(n),
              0);
    std::string text = test::text(name) + (current ? " current " : " ") + std::to_string(type) + (all ? " all:" : ":");
    for (int i = 0; filter.GetLayerAt(i, layer).IsSuccess(); ++i, --n) text += " " + std::to_string(layer);
    EXPECT_TRUE(n == 0 && layer == -1 && filter.GetLayerAt(-1, layer) == kFailed && layer == -1);
    return text;
}

TEST(LayerFilter, SetsAllOrNothing) {
    using Type = KOVALayerFilter::eLayerFilterType;
    int layers[] = {7, -8, 9};
    KOVALayerFilter filter;
    EXPECT_EQ(described(filter), "- 2:");
    EXPECT_TRUE(filter.Set(0, nullptr, "n", true, Type(1)) == 0 && described(filter) == "n current 1:");
    EXPECT_EQ((Numbers{filter.Set(0, layers, "x", false, Type(0)), filter.Set(-1, layers, "x", false, Type(0)),
                       filter.Set(-1, nullptr, "x", false, Type(0)), filter.Set(1, nullptr, "x", false, Type(0)),
                       filter.SetName("")}),
              (Numbers{kFailed, kFailed, kFailed, kFailed, kFailed}));
    KOVALayerFilter const shared = filter = KOVALayerFilter(3, layers, "l", false, KOVALayerFilter::AllLayers);
    EXPECT_EQ(filter.Set(2, layers, "", true, Type(5)), 0);
    EXPECT_EQ((Texts{described(filter), described(shared)}), (Texts{"- current 5: 7 -8", "l 0 all: 7 -8 9"}));
    EXPECT_EQ(filter.SetName("new") | filter.SetCurrent(false) | filter.SetLayerFilterType(Type(0)), 0);
    filter = *&filter;
    EXPECT_EQ(described(filter), "new 0 all: 7 -8");
    EXPECT_EQ(described(KOVALayerFilter(0, layers, "x", true, Type(0))), "- 2:");
}

std::vector<float> vectors(KOVACamera const& camera) {
    std::vector<float> v(12);
    camera.GetPosition(&v[0]);
    camera.GetTarget(&v[3]);
    camera.GetDirection(&v[6]);
    camera.GetZenith(&v[9]);
    camera.GetDirection(nullptr);
    return v;
}

TEST(Camera, LooksFromPositionToTarget) {
    EXPECT_EQ(vectors(KOVACamera()), (std::vector<float>{1, 1, 1, 0, 0, 0, -1, -1, -1, 0, 0, 1}));
    float position[] = {1, 2, 10}, target[] = {4, 6, 10}, zenith[] = {0, 5, 0};
    KOVACamera camera(KOVACameraType(9), position, target, zenith, 30, 2);
    camera = KOVACamera(camera);
    EXPECT_EQ(vectors(camera), (std::vector<float>{1, 2, 10, 4, 6, 10, 0.6F, 0.8F, 0, 0, 5, 0}));
    EXPECT_TRUE(camera.GetType() == 9 && KOVACamera().GetType() == KOVA_CAMERA_DEFAULT);
    static_assert(std::is_same_v<decltype(&KOVACamera::GetAngle), void (KOVACamera::*)(float) const>);
    EXPECT_TRUE(std::isnan(vectors(KOVACamera(KOVA_CAMERA_DEFAULT, target, target, zenith, 30, 2))[6]));
    float huge[] = {0, 0, -3e38F};
    EXPECT_EQ(vectors(KOVACamera(KOVA_CAMERA_DEFAULT, huge, nullptr, nullptr, 30, 2))[8], 1);
}

TEST(Color, NumbersFrom0To255ComeBack) {
    unsigned out[4], numbers[] = {255, 0, 0, 300};
    float values[] = {0.5F, -0.25F, std::nanf(""), 1e30F}, back[4] = {};
    KOVARGBColor color;
    for (unsigned n = 0; n < 256; ++n) {
        color.SetRGB(n, 0U, 255 - n, 255U);
        color.GetRGBA(out);
        ASSERT_TRUE(color.IsValid() && out[0] == n && out[1] == 0 && out[2] == 255 - n && out[3] == 255);
    }
    color.SetRGBA(values);
    color.GetRGBA(out);
    EXPECT_THAT(out, testing::ElementsAre(127, 0, 0, 0xFFFFFFFFU));
    color.SetRGBA(numbers);
    color.GetRGB(back);
    EXPECT_TRUE(!color.IsValid() && back[0] == 1 && back[3] == 0);
    KOVARGBColor(0, 255, 0, 255).GetRGBA(back);
    EXPECT_THAT(back, testing::ElementsAre(0, 1, 0, 1));
    for (float const bad : {-1e-9F, 1.0000001F, std::nanf("")}) {
        for (float& component : back) {
            float const good = std::exchange(component, bad);
            EXPECT_FALSE(KOVARGBColor(back[0], back[1], back[2], back[3]).IsValid());
            component = good;
        }
    }
}

std::istream& operator>>(std::istream& in, KOVARGBColor& color) {
    float v[4] = {};
    in >> v[0] >> v[1] >> v[2] >> v[3];
    color = KOVARGBColor(v[0], v[1], v[2], v[3]);
    return in;
}

TEST(Color, EqualityAndInequalityAreNoOpposites) {
    std::istringstream pairs("0.2 0 0 0.9 0.2 0 0 0.9 1 1  0.9 0 0 0.2 0.9 0 0 0.9 0 0  1 .5 1 1 1 .50009 1 1 1 0 "
                             "1 .5 1 1 1 .50011 1 1 0 1  1 1 0 1 1 1 1 1 0 1  1 1 1 1 1 1 1 1 1 0"),
        hashes("0 0 0 0 0  1 1 1 1 1128692079  .2 0 0 .9 315526958  .5 .5 .5 1 1010875071  -100 0 0 0 853776475");
    KOVARGBColor a, b;
    EXPECT_TRUE(a == b && !(a != b) && a == KOVARGBColor(0, 0, 0, 0) && a != KOVARGBColor(0, 0, 0, 0));
    for (bool equal, unequal; pairs >> a >> b >> equal >> unequal;)
        EXPECT_TRUE((a == b) == equal && (a != b) == unequal) << pairs.tellg();
    for (unsigned hash; hashes >> a >> hash;) EXPECT_EQ(a.hashCode(), hash);
}

TEST(Abort, FlagAndCallbackBothEndThePollAndTheFlagStays) {
    static int calls = 0;
    EXPECT_FALSE(KOVACallbackShared::IsAborted());
    KOVACallbackShared::m_AbortCallback = [] { return ++calls == 2; };
    EXPECT_FALSE(KOVACallbackShared::IsAborted());
    EXPECT_THROW(KOVACallbackShared::IsAborted(), KOVAAbortException);
    EXPECT_FALSE(Gk_ErrMgr::shouldAbort());
    Gk_ErrMgr::setAbort();
    EXPECT_THROW(KOVACallbackShared::IsAborted(), KOVAAbortException);
    EXPECT_EQ(calls, 3); // asked although the flag was set
    KOVACallbackShared::m_AbortCallback = nullptr;
    EXPECT_THROW(KOVACallbackShared::IsAborted(), KOVAAbortException);
    EXPECT_THROW(Gk_ErrMgr::checkAbort(), KOVAAbortException);
    EXPECT_EQ(static_cast<Gk_Observer const&>(KOVAEntityCallback()).getType(), 4);
}

} // namespace
