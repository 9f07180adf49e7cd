#include <numeric>

#include "math/geometry.h"

namespace {

using Transform = KOVAAssemblyComponentTransform;
using testing::ElementsAre;

TEST(Transform, StoresAndHandsOutByRowAndByColumn) {
    float in[16], out[16];
    std::iota(in, in + 16, 1.0F);
    double m[12];
    Transform transform, copy;
    EXPECT_EQ(transform.Set3x4ByRow(in) | transform.Get(m) | transform.Get4x4ByRow(out), 0);
    EXPECT_THAT(m, ElementsAre(1, 5, 9, 2, 6, 10, 3, 7, 11, 4, 8, 12));
    EXPECT_THAT(out, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 0, 0, 0, 1));
    EXPECT_EQ(transform.Set4x4ByColumn(in) | transform.GetRotation(m) | transform.GetTranslation(m + 9), 0);
    EXPECT_THAT(m, ElementsAre(1, 2, 3, 5, 6, 7, 9, 10, 11, 13, 14, 15));
    EXPECT_EQ(copy.SetTranslation(m + 9) | copy.SetRotation(m) | copy.Get4x4ByColumn(out), 0);
    EXPECT_THAT(out, ElementsAre(1, 2, 3, 0, 5, 6, 7, 0, 9, 10, 11, 0, 13, 14, 15, 1));
    EXPECT_THAT((Numbers{copy.Get(nullptr), copy.Set(nullptr), copy.GetRotation(nullptr), copy.SetRotation(nullptr),
                         copy.GetTranslation(nullptr), copy.SetTranslation(nullptr), copy.Set3x4ByRow(nullptr),
                         copy.Set4x4ByColumn(nullptr), copy.Get4x4ByRow(nullptr), copy.Get4x4ByColumn(nullptr),
                         Transform().ApplyTransform(nullptr), copy.ApplyRotation(nullptr)}),
                testing::Each(0x0100000B));
}

long flags(Transform const& t) { return t.IsValid() * 4 + t.IsIdentityTransform() * 2 + t.IsMirrorTransform(); }

TEST(Transform, IsClassifiedAnewAfterEachChange) {
    Transform transform;
    double value = 0.0;
    EXPECT_TRUE(transform.GetDeterminant(value) == 0 && value == 1.0 && transform.SetScale(2.0) == 0);
    EXPECT_EQ(flags(transform), 6);
    std::tuple<int, double, long> const rows[] = {{9, 5e-7, 6},   {9, 1e-6, 4},  {11, -1e-6, 4},
                                                  {8, -2.0, 5},   {0, -1.0, 0},  {4, 9e-7, 6},
                                                  {4, 1.1e-6, 4}, {1, -1e-6, 4}, {6, 9.9e-7, 6}};
    for (auto const& [element, by, expected] : rows) {
        double m[12];
        Transform assigned;
        assigned.Get(m);
        m[element] += by;
        transform.Set(m);
        EXPECT_EQ((Numbers{flags(transform), flags(Transform(transform)), flags(assigned = transform)}),
                  Numbers(3, expected));
        float p[] = {1, 2, 4};
        transform.ApplyTransform(p);
        EXPECT_TRUE(!transform.IsIdentityTransform() || (p[0] == 1 && p[1] == 2 && p[2] == 4));
    }
    EXPECT_TRUE(Transform(transform).GetScale(value) == 0 && value == 2.0);
    EXPECT_TRUE((transform * transform).GetScale(value) == 0 && value == 1.0);
}

TEST(Transform, ProductsApplyTheRightOperandFirst) {
    test::Random random(11);
    for (int round = 0; round < 200; ++round) {
        Transform factors[2];
        for (Transform& factor : factors) {
            KOVAAffine3D const linear = random.isometry();
            double m[12], determinant;
            for (int i = 0; i < 12; ++i) m[i] = i < 9 ? 1.5 * linear.GetElement(i % 3, i / 3) : random.real(10.0);
            EXPECT_EQ(factor.Set(m) | factor.GetDeterminant(determinant), 0);
            EXPECT_NEAR(determinant, 3.375 * linear.Determinant(), 1e-12);
            EXPECT_EQ(factor.IsMirrorTransform(), linear.Determinant() < 0.0);
        }
        Transform const both = factors[0] * factors[1];
        float p[3], q[3], v[3], origin[3] = {};
        for (int i = 0; i < 3; ++i) p[i] = q[i] = v[i] = random.single(10.0F);
        EXPECT_EQ(both.ApplyTransform(p) | both.ApplyRotation(v) | both.ApplyTransform(origin), 0);
        EXPECT_EQ(factors[1].ApplyTransform(q) | factors[0].ApplyTransform(q), 0);
        for (int i = 0; i < 3; ++i) EXPECT_NEAR(p[i], q[i], 1e-4F);
        for (int i = 0; i < 3; ++i) EXPECT_NEAR(p[i] - origin[i], v[i], 1e-4F);
    }
}

TEST(Transform, ArraysAreTransformedToTheLastBitAsOneByOne) {
    test::Random random(12);
    Transform general, identity;
    double m[12];
    for (double& value : m) value = random.real(5.0);
    EXPECT_EQ(general.Set(m), 0);
    for (Transform const* transform : {&general, &identity}) {
        std::vector<float> points(3 * 101);
        for (float& value : points) value = random.single(100.0F);
        std::vector<float> vectors = points, single = points, turned = points;
        for (std::size_t i = 0; i < points.size(); i += 3)
            EXPECT_EQ(transform->ApplyTransform(&single[i]) | transform->ApplyRotation(&turned[i]), 0);
        EXPECT_EQ(TransformPoints(*transform, points.data(), 101) | TransformVectors(*transform, vectors.data(), 101) |
                      TransformPoints(*transform, points.data(), -1) | TransformVectors(*transform, vectors.data(), 0),
                  0);
        EXPECT_TRUE(points == single && vectors == turned);
        EXPECT_EQ((Numbers{TransformPoints(*transform, nullptr, 1), TransformVectors(*transform, nullptr, 1)}),
                  Numbers(2, 0x0100000B));
    }
}

} // namespace
