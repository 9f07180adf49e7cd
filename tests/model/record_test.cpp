#include <cmath>
#include <numeric>

#include "support/test.h"

namespace {

constexpr long kFailed = 0x01000001;
constexpr long kInvalid = 0x0100000B;

/// The four arrays of a shell: counts, then the sums of what is in them.
Numbers contents(KOVASurfacicShell const& shell) {
    int counts[4];
    float *points, *normals, *colors;
    int* faces;
    EXPECT_TRUE(shell.GetPoints(counts[0], points) == 0 && shell.GetNormals(counts[1], normals) == 0 &&
                shell.GetFaces(counts[2], faces) == 0 && shell.GetColors(counts[3], colors) == 0);
    Numbers result(counts, counts + 4);
    for (auto const& [data, n] :
         {std::pair(points, counts[0]), std::pair(normals, counts[1]), std::pair(colors, counts[3])})
        result.push_back(static_cast<long>(std::accumulate(data, data + 3 * n, 0.0F)));
    result.push_back(std::accumulate(faces, faces + counts[2], 0L));
    return result;
}

TEST(Shell, ReferToArraysOrCopiesThem) {
    float points[] = {1, 2, 3, 4, 5, 6}, normals[] = {0, 0, 1}, colors[] = {10, 20, 30};
    int faces[] = {0, 1, 0, 1};
    KOVASurfacicShell shell(-5, 2, 3), owner(0, 0, 0);
    EXPECT_EQ(contents(shell), Numbers(8));
    EXPECT_EQ(shell.SetData(2, points, 1, normals, 4, faces, 1, colors), 0);
    EXPECT_EQ(owner.CopyData(2, points, 1, normals, 4, faces, 1, colors), 0);
    KOVASurfacicShell const copy(shell);
    faces[0] = 7;
    points[0] = 101;
    EXPECT_EQ(contents(copy), (Numbers{2, 1, 4, 1, 121, 1, 60, 9}));
    EXPECT_EQ(contents(owner), (Numbers{2, 1, 4, 1, 21, 1, 60, 2}));
    // Refused, and nothing changes.
    EXPECT_EQ((Numbers{owner.CopyData(-1, points, 1, normals, 4, faces, 1, colors),
                       owner.CopyData(2, points, 1, nullptr, 4, faces, 1, colors),
                       owner.CopyData(2, points, 1, normals, 1, nullptr, 1, colors),
                       owner.CopyData(2, points, 1, normals, 4, faces, -1, nullptr)}),
              (Numbers{kInvalid, kInvalid, kInvalid, kInvalid}));
    EXPECT_EQ(contents(owner), (Numbers{2, 1, 4, 1, 21, 1, 60, 2}));
    KOVASurfacicShell empty(1, 1, 1);
    EXPECT_EQ(empty.CopyData(0, nullptr, 0, nullptr, 4, faces, 0, nullptr), 0);
    EXPECT_EQ(contents(empty), (Numbers{0, 0, 4, 0, 0, 0, 0, 9}));
    KOVAStrippedShell const stripped(7, 1, 0);
    KOVASurfacicShell const& base = stripped;
    EXPECT_EQ((Numbers{base.IsStripped(), base.GetKey(), base.GetLOD(), base.GetPass()}), (Numbers{1, 7, 1, 0}));
    EXPECT_EQ((Numbers{shell.IsStripped(), shell.GetKey(), shell.GetLOD(), shell.GetPass()}), (Numbers{0, -5, 2, 3}));
}

struct OwningPolylines : KOVAPolylineSet {
    OwningPolylines() : KOVAPolylineSet(42) {
        SetData(1, new float[3]{1, 2, 3}, 0, nullptr, 0, nullptr);
        owned_ = 1;
    }
};

TEST(PolylineSet, RefersToArrays) {
    OwningPolylines const owning; // what it does not release, the leak checker finds
    EXPECT_EQ(owning.GetKey(), 42);
    float const points[] = {1, 2, 3}, colors[] = {4, 5, 6};
    int const lines[] = {0, 0};
    KOVAPolylineSet set(1);
    EXPECT_EQ(set.SetData(1, points, 2, lines, 3, colors), 0);
    KOVAPolylineSet copy(2);
    copy = set;
    int counts[3];
    float *p, *c;
    int* l;
    EXPECT_TRUE(copy.GetPoints(counts[0], p) == 0 && copy.GetPolylines(counts[1], l) == 0 &&
                copy.GetColors(counts[2], c) == 0);
    EXPECT_EQ(Numbers(counts, counts + 3), (Numbers{1, 2, 3}));
    EXPECT_TRUE(p == points && l == lines && c == colors && copy.GetKey() == 1);
}

TEST(SelectionSet, HoldsEachMemberOnceAndCopiesDeeply) {
    std::vector<int> entities(2000);
    KOVASelectionSet set("walls", true);
    for (std::size_t i = 0; i < entities.size(); i += 2)
        ASSERT_TRUE(set.AddMember(&entities[i]) == 0 && set.AddMember(&entities[i]) == 0);
    EXPECT_EQ(set.AddMember(nullptr), kFailed);
    KOVASelectionSet const copy(set);
    KOVASelectionSet other("other", false);
    EXPECT_EQ(other.AddMember(&entities[1]), 0);
    other = copy;
    other = *&other;
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
    EXPECT_EQ(filter.Set(0, nullptr, "n", true, Type(1)), 0);
    EXPECT_EQ(described(filter), "n current 1:");
    EXPECT_EQ((Numbers{filter.Set(0, layers, "x", false, Type(0)), filter.Set(-1, layers, "x", false, Type(0)),
                       filter.Set(-1, nullptr, "x", false, Type(0)), filter.Set(1, nullptr, "x", false, Type(0)),
                       filter.SetName("")}),
              (Numbers{kFailed, kFailed, kFailed, kFailed, kFailed}));
    KOVALayerFilter const shared = filter = KOVALayerFilter(3, layers, "l", false, KOVALayerFilter::AllLayers);
    EXPECT_EQ(filter.Set(2, layers, "", true, Type(5)), 0);
    EXPECT_EQ((Texts{described(filter), described(shared)}), (Texts{"- current 5: 7 -8", "l 0 all: 7 -8 9"}));
    EXPECT_TRUE(filter.SetName("new") == 0 && filter.SetCurrent(false) == 0 && filter.SetLayerFilterType(Type(0)) == 0);
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
    float angle = 7;
    camera.GetAngle(angle);
    camera.GetZoom(angle);
    EXPECT_EQ(angle, 7);
    EXPECT_TRUE(std::isnan(vectors(KOVACamera(KOVA_CAMERA_DEFAULT, target, target, zenith, 30, 2))[6]));
    float huge[] = {0, 0, -3e38F};
    EXPECT_EQ(vectors(KOVACamera(KOVA_CAMERA_DEFAULT, huge, nullptr, nullptr, 30, 2))[8], 1);
}

TEST(Color, NumbersFrom0To255ComeBack) {
    for (unsigned n = 0; n < 256; ++n) {
        KOVARGBColor const color(n, 0U, 255 - n, 255U);
        unsigned out[4];
        color.GetRGBA(out);
        ASSERT_TRUE(color.IsValid() && out[0] == n && out[1] == 0 && out[2] == 255 - n && out[3] == 255);
    }
    EXPECT_FALSE(KOVARGBColor(256, 0, 0, 255).IsValid() || KOVARGBColor(0, -1, 0, 255).IsValid());
    unsigned numbers[] = {255, 0, 0, 300}, out[4];
    float values[] = {0.5F, -0.25F, std::nanf(""), 1e30F}, back[4] = {};
    KOVARGBColor color(1.0F, 0.0F, 1.0F, 1.0F);
    EXPECT_TRUE(color.IsValid());
    color.SetRGBA(values);
    color.GetRGBA(out);
    EXPECT_EQ((std::vector<unsigned>(out, out + 4)), (std::vector<unsigned>{127, 0, 0, 0xFFFFFFFFU}));
    color.SetRGBA(numbers);
    color.GetRGB(back);
    EXPECT_TRUE(!color.IsValid() && back[0] == 1 && back[3] == 0);
    color.SetRGB(51, 0, 255, 255);
    color.GetRGBA(back);
    EXPECT_TRUE(color.IsValid() && back[2] == 1 && back[3] == 1);
    for (float const bad : {-1e-9F, 1.0000001F, std::nanf("")})
        EXPECT_FALSE(KOVARGBColor(0.0F, bad, 0.0F, 0.0F).IsValid());
}

TEST(Color, EqualityAndInequalityAreNoOpposites) {
    struct {
        KOVARGBColor a, b;
        bool equal, unequal;
    } const rows[] = {{{0.2F, 0.F, 0.F, 0.9F}, {0.2F, 0.F, 0.F, 0.9F}, true, true},
                      {{0.9F, 0.F, 0.F, 0.2F}, {0.9F, 0.F, 0.F, 0.9F}, false, false},
                      {{}, {0.F, 0.F, 0.F, 0.F}, true, true},
                      {{}, {}, true, false},
                      {{1.F, .5F, 1.F, 1.F}, {1.F, .50009F, 1.F, 1.F}, true, false},
                      {{1.F, .5F, 1.F, 1.F}, {1.F, .50011F, 1.F, 1.F}, false, true},
                      {{1.F, 1.F, 0.F, 1.F}, {1.F, 1.F, 1.F, 1.F}, false, true}};
    for (auto const& row : rows)
        EXPECT_TRUE((row.a == row.b) == row.equal && (row.a != row.b) == row.unequal) << &row - rows;
    std::pair<KOVARGBColor, unsigned> const hashes[] = {{{0, 0, 0, 0}, 0U},
                                                        {{1.F, 1.F, 1.F, 1.F}, 1128692079U},
                                                        {{.2F, 0.F, 0.F, .9F}, 315526958U},
                                                        {{.5F, .5F, .5F, 1.F}, 1010875071U},
                                                        {{-100.F, 0.F, 0.F, 0.F}, 853776475U},
                                                        {{1e6F, 0.F, 0.F, 0.F}, 2034877192U}};
    for (auto const& [color, hash] : hashes) EXPECT_EQ(color.hashCode(), hash);
}

TEST(Abort, FlagAndCallbackBothEndThePollAndTheFlagStays) {
    static int calls;
    calls = 0;
    struct Consume {
        ~Consume() {
            KOVACallbackShared::m_AbortCallback = nullptr;
            EXPECT_THROW(Gk_ErrMgr::checkAbort(), KOVAAbortException);
        }
    };
    EXPECT_FALSE(KOVACallbackShared::IsAborted());
    KOVACallbackShared::m_AbortCallback = [] { return ++calls > 1; };
    EXPECT_FALSE(KOVACallbackShared::IsAborted());
    EXPECT_THROW(KOVACallbackShared::IsAborted(), KOVAAbortException);
    EXPECT_FALSE(Gk_ErrMgr::shouldAbort());
    Gk_ErrMgr::setAbort();
    Consume const consume;
    KOVACallbackShared::m_AbortCallback = [] { return ++calls < 0; };
    EXPECT_THROW(KOVACallbackShared::IsAborted(), KOVAAbortException);
    KOVACallbackShared::m_AbortCallback = nullptr;
    EXPECT_THROW(KOVACallbackShared::IsAborted(), KOVAAbortException);
    EXPECT_EQ(calls, 3);
    KOVAEntityCallback const callback;
    EXPECT_EQ(static_cast<Gk_Observer const&>(callback).getType(), 4);
}

} // namespace
